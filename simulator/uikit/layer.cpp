// CALayer, as far as a view's looks need it. Each view has one, without sublayers of its own.

#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"
#include "uikit/view_state.hpp"

namespace sim {
namespace {

/// A property that is a CGColor outside and a UIColor in the state.
template <objc::FixedString Getter, auto Member> void DefineColor(Class<LayerState> &layer) {
    layer.Method<Getter>([](const LayerState &state) { return (state.*Member)->CGColor(); });
    layer.Method<SetterName<Getter>()>([](LayerState &state, CGColor *color) {
        state.*Member =
            color != nullptr ? objc::SendClass<ui::Color, "colorWithCGColor:", ui::Color>(color) : ui::Color{};
    });
}

} // namespace

void DefineLayer() {
    auto layer = Class<LayerState>("CALayer", "NSObject");
    layer.ClassMethod<"layer">([](ca::Layer) { return ns::New<ca::Layer>(); });
    layer.Property<"cornerRadius", &LayerState::cornerRadius>();
    // https://developer.apple.com/documentation/quartzcore/calayercornercurve
    layer.Method<"cornerCurve">([](const LayerState &state) {
        return state.corners == Corners::kContinuous ? "continuous"_ns : "circular"_ns;
    });
    layer.Method<"setCornerCurve:">([](LayerState &state, ns::String curve) {
        state.corners = curve.isEqual("continuous"_ns) ? Corners::kContinuous : Corners::kCircular;
    });
    layer.Property<"zPosition", &LayerState::zPosition>();
    layer.Property<"borderWidth", &LayerState::borderWidth>();
    DefineColor<"borderColor", &LayerState::borderColor>(layer);
    layer.Property<"shadowRadius", &LayerState::shadowRadius>();
    layer.Property<"shadowOpacity", &LayerState::shadowOpacity>();
    layer.Property<"shadowOffset", &LayerState::shadowOffset>();
    DefineColor<"shadowColor", &LayerState::shadowColor>(layer);
}

LayerState &LayerStateOf(ca::Layer layer) {
    return StateOf<LayerState>(layer);
}

} // namespace sim
