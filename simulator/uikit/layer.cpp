#include "uikit/layer.hpp"

#include "runtime/native_class.hpp"
#include "uikit/view_state.hpp"

namespace sim {
namespace {

/// Reads and writes one plain value of a layer.
template <auto Member> auto Get(ca::Layer self, objc::SEL) {
    return LayerStateOf(self).*Member;
}

template <auto Member, class T> void Set(ca::Layer self, objc::SEL, T value) {
    LayerStateOf(self).*Member = value;
}

/// The same for a colour, which the layer keeps and gives out as a CGColor.
template <auto Member> CGColor *GetColor(ca::Layer self, objc::SEL) {
    return (LayerStateOf(self).*Member)->CGColor();
}

template <auto Member> void SetColor(ca::Layer self, objc::SEL, CGColor *color) {
    LayerStateOf(self).*Member =
        color != nullptr ? objc::SendClass<ui::Color, "colorWithCGColor:", ui::Color>(color) : ui::Color{};
}

ca::Layer MakeLayer(ca::Layer, objc::SEL) {
    return objc::Send<"autorelease", ca::Layer>(objc::SendClass<ca::Layer, "new", ca::Layer>());
}

} // namespace

LayerState &LayerStateOf(ca::Layer layer) {
    return StateOf<LayerState>(layer);
}

void RegisterLayer() {
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"cornerRadius", &Get<&LayerState::cornerRadius>>(),
        objc::MethodNamed<"setCornerRadius:", &Set<&LayerState::cornerRadius, double>>(),
        objc::MethodNamed<"zPosition", &Get<&LayerState::zPosition>>(),
        objc::MethodNamed<"setZPosition:", &Set<&LayerState::zPosition, double>>(),
        objc::MethodNamed<"borderWidth", &Get<&LayerState::borderWidth>>(),
        objc::MethodNamed<"setBorderWidth:", &Set<&LayerState::borderWidth, double>>(),
        objc::MethodNamed<"borderColor", &GetColor<&LayerState::borderColor>>(),
        objc::MethodNamed<"setBorderColor:", &SetColor<&LayerState::borderColor>>(),
        objc::MethodNamed<"shadowRadius", &Get<&LayerState::shadowRadius>>(),
        objc::MethodNamed<"setShadowRadius:", &Set<&LayerState::shadowRadius, double>>(),
        objc::MethodNamed<"shadowOpacity", &Get<&LayerState::shadowOpacity>>(),
        objc::MethodNamed<"setShadowOpacity:", &Set<&LayerState::shadowOpacity, float>>(),
        objc::MethodNamed<"shadowOffset", &Get<&LayerState::shadowOffset>>(),
        objc::MethodNamed<"setShadowOffset:", &Set<&LayerState::shadowOffset, cg::Size>>(),
        objc::MethodNamed<"shadowColor", &GetColor<&LayerState::shadowColor>>(),
        objc::MethodNamed<"setShadowColor:", &SetColor<&LayerState::shadowColor>>(),
    };
    const objc::MethodEntry classMethods[] = {
        objc::MethodNamed<"layer", &MakeLayer>(),
    };
    RegisterClassWithState<LayerState>("CALayer", "NSObject", methods, classMethods);
}

} // namespace sim
