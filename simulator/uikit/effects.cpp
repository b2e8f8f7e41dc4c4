#include "uikit/effects.hpp"

#include "runtime/autorelease.hpp"
#include "runtime/exception.hpp"
#include "runtime/native_class.hpp"
#include "uikit/view_state.hpp"

namespace sim {
namespace {

/// UIBlurEffectStyle.
enum class Style : long { kExtraLight = 0, kLight = 1, kDark = 2, kExtraDark = 3, kRegular = 4, kProminent = 5 };
// The materials: ultra-thin, thin, regular, thick, chrome from 6 on, then all five again for light, and for dark.
constexpr long kFirstMaterial = 6;
constexpr long kMaterials = 5;
constexpr long kLastStyle = kFirstMaterial + 3 * kMaterials - 1;

struct EffectState {
    Style style = Style::kRegular;
};

struct EffectViewState {
    objc::Ref<ns::Object> effect;
    objc::Ref<ui::View> contentView; // made at first use
};

constexpr double kDeviation = 20;
constexpr double kSaturation = 1.8;

BlurLook Tinted(double white, double alpha) {
    return {kDeviation, kSaturation, {white, white, white, alpha}};
}

BlurLook MaterialLook(long thickness, bool dark) {
    constexpr double kLightAlpha[kMaterials] = {0.44, 0.6, 0.76, 0.88, 0.82};
    constexpr double kDarkAlpha[kMaterials] = {0.5, 0.64, 0.78, 0.9, 0.84};
    return dark ? Tinted(0.145, kDarkAlpha[thickness]) : Tinted(0.965, kLightAlpha[thickness]);
}

BlurLook LookOf(Style style) {
    switch (style) {
    case Style::kExtraLight:
        return Tinted(0.97, 0.82);
    case Style::kLight:
        return Tinted(1, 0.3);
    case Style::kDark:
        return Tinted(0.145, 0.7);
    case Style::kExtraDark:
        return Tinted(0.06, 0.8);
    case Style::kRegular:
        return LookOf(IsDarkAppearance() ? Style::kDark : Style::kLight);
    case Style::kProminent:
        return LookOf(IsDarkAppearance() ? Style::kDark : Style::kExtraLight);
    default:
        break;
    }
    const long material = static_cast<long>(style) - kFirstMaterial;
    const bool dark = material < kMaterials ? IsDarkAppearance() : material >= 2 * kMaterials;
    return MaterialLook(material % kMaterials, dark);
}

ns::Object EffectWithStyle(objc::Object, objc::SEL, Style style) {
    const auto number = static_cast<long>(style);
    if (number < 0 || number > kLastStyle) {
        RaiseException("NSInvalidArgumentException", "unknown blur style");
    }
    const auto effect = ns::New<ui::BlurEffect>();
    StateOf<EffectState>(effect.get()).style = style;
    return Autoreleased(effect);
}

EffectViewState &StateOfView(ui::View view) {
    return StateOf<EffectViewState>(view);
}

ui::View InitWithEffect(ui::VisualEffectView self, objc::SEL, ns::Object effect) {
    const ui::View view = self.initWithFrame({});
    if (view) {
        StateOfView(view).effect = effect;
    }
    return view;
}

ns::Object Effect(ui::VisualEffectView self, objc::SEL) {
    return StateOfView(self).effect;
}

void SetEffect(ui::VisualEffectView self, objc::SEL, ns::Object effect) {
    StateOfView(self).effect = effect;
}

ui::View ContentView(ui::VisualEffectView self, objc::SEL) {
    objc::Ref<ui::View> &content = StateOfView(self).contentView;
    if (!content) {
        content = objc::Ref<ui::View>::Adopt(ns::Alloc<ui::View>().initWithFrame(self.bounds()));
        self.addSubview(content);
    }
    return content;
}

void FitContentView(ui::VisualEffectView self) {
    if (const objc::Ref<ui::View> &content = StateOfView(self).contentView) {
        content->setFrame(self.bounds());
    }
}

void SetFrame(ui::VisualEffectView self, objc::SEL, cg::Rect frame) {
    objc::SendSuper<"setFrame:", void>(ui::View{self.pointer}, frame);
    FitContentView(self);
}

void SetBounds(ui::VisualEffectView self, objc::SEL, cg::Rect bounds) {
    objc::SendSuper<"setBounds:", void>(ui::View{self.pointer}, bounds);
    FitContentView(self);
}

void AddSubview(ui::VisualEffectView self, objc::SEL, ui::View view) {
    if (!(view == StateOfView(self).contentView.get())) {
        RaiseException("NSInternalInconsistencyException",
                       "a view was added to a UIVisualEffectView itself instead of to its contentView");
    }
    objc::SendSuper<"addSubview:", void>(ui::View{self.pointer}, view);
}

} // namespace

void RegisterEffects() {
    RegisterClass("UIVisualEffect", "NSObject", {});
    const objc::MethodEntry effectMethods[] = {objc::MethodNamed<"effectWithStyle:", &EffectWithStyle>()};
    RegisterClassWithState<EffectState>("UIBlurEffect", "UIVisualEffect", {}, effectMethods);
    const objc::MethodEntry viewMethods[] = {
        objc::MethodNamed<"initWithEffect:", &InitWithEffect>(),
        objc::MethodNamed<"effect", &Effect>(),
        objc::MethodNamed<"setEffect:", &SetEffect>(),
        objc::MethodNamed<"contentView", &ContentView>(),
        objc::MethodNamed<"setFrame:", &SetFrame>(),
        objc::MethodNamed<"setBounds:", &SetBounds>(),
        objc::MethodNamed<"addSubview:", &AddSubview>(),
    };
    RegisterClassWithState<EffectViewState>("UIVisualEffectView", "UIView", viewMethods);
}

std::optional<BlurLook> BlurLookOf(ui::View view) {
    const objc::Class effectView = objc::ClassOf<ui::VisualEffectView>();
    if (effectView == nullptr || !view.isKindOfClass(effectView)) {
        return std::nullopt;
    }
    const ns::Object effect = StateOfView(view).effect;
    if (!effect || !effect.isKindOfClass(objc::ClassOf<ui::BlurEffect>())) {
        return std::nullopt;
    }
    return LookOf(StateOf<EffectState>(effect).style);
}

} // namespace sim
