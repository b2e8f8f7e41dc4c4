#include "uikit/effects.hpp"

#include "runtime/exception.hpp"
#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"

namespace sim {
namespace {

// Of each kind: for either appearance, light, dark.
constexpr long kMaterials = UIBlurEffectStyleSystemChromeMaterial - UIBlurEffectStyleSystemUltraThinMaterial + 1;

struct EffectState {
    UIBlurEffectStyle style = UIBlurEffectStyleRegular;
};

struct EffectViewState {
    objc::Ref<ns::Object> effect;
    objc::Ref<ui::View> contentView; // made at first use
};

// The older styles' numbers are those of the platform maker's published sample for blurring images; those of the
// materials are by eye, from how the phone's panels look over bright, dark and coloured ground.

BlurLook Tinted(double deviation, double white, double alpha) {
    constexpr double kSaturation = 1.8;
    return {deviation, kSaturation, {white, white, white, alpha}};
}

/// From ultra thin to thick, then chrome. The light ones take most of the colour out of what is behind them, as their
/// tint does where there is much of it.
BlurLook MaterialLook(long thickness, bool dark) {
    constexpr double kDeviation = 29;
    constexpr double kLightSaturation = 1.4;
    constexpr double kLightAlpha[kMaterials] = {0.58, 0.7, 0.82, 0.92, 0.86};
    constexpr double kDarkAlpha[kMaterials] = {0.55, 0.7, 0.82, 0.9, 0.86};
    if (dark) {
        return Tinted(kDeviation, 0.145, kDarkAlpha[thickness]);
    }
    return {kDeviation, kLightSaturation, {0.955, 0.955, 0.96, kLightAlpha[thickness]}};
}

BlurLook LookOf(UIBlurEffectStyle style) {
    switch (style) {
    case UIBlurEffectStyleExtraLight:
        return Tinted(20, 0.97, 0.82);
    case UIBlurEffectStyleLight:
        return Tinted(30, 1, 0.3);
    case UIBlurEffectStyleDark:
        return Tinted(20, 0.11, 0.73);
    case UIBlurEffectStyleExtraDark:
        return Tinted(20, 0.06, 0.8);
    case UIBlurEffectStyleRegular:
        return LookOf(IsDarkAppearance() ? UIBlurEffectStyleDark : UIBlurEffectStyleLight);
    case UIBlurEffectStyleProminent:
        return LookOf(IsDarkAppearance() ? UIBlurEffectStyleDark : UIBlurEffectStyleExtraLight);
    default:
        break;
    }
    const long material = style - UIBlurEffectStyleSystemUltraThinMaterial;
    const bool dark = style < UIBlurEffectStyleSystemUltraThinMaterialLight
                          ? IsDarkAppearance()
                          : style >= UIBlurEffectStyleSystemUltraThinMaterialDark;
    return MaterialLook(material % kMaterials, dark);
}

objc::Ref<ui::BlurEffect> EffectWithStyle(ui::BlurEffect, UIBlurEffectStyle style) {
    if (style < UIBlurEffectStyleExtraLight || style > UIBlurEffectStyleSystemChromeMaterialDark) {
        RaiseException("NSInvalidArgumentException", "unknown blur style");
    }
    const auto effect = ns::New<ui::BlurEffect>();
    StateOf<EffectState>(effect).style = style;
    return effect;
}

ui::View ContentView(ui::View self) {
    objc::Ref<ui::View> &content = StateOf<EffectViewState>(self).contentView;
    if (!content) {
        content = ui::MakeView<ui::View>(self.bounds());
        self.addSubview(content);
    }
    return content;
}

void FitContentView(ui::View self) {
    StateOf<EffectViewState>(self).contentView->setFrame(self.bounds());
}

} // namespace

void DefineEffects() {
    Class("UIVisualEffect", "NSObject");
    auto effect = Class<EffectState>("UIBlurEffect", "UIVisualEffect");
    effect.ClassMethod<"effectWithStyle:", &EffectWithStyle>();

    auto effectView = Class<EffectViewState>("UIVisualEffectView", "UIView");
    effectView.Method<"initWithEffect:">([](ui::View self, ns::Object effectToShow) {
        const ui::View view = self.initWithFrame({});
        StateOf<EffectViewState>(view).effect = effectToShow;
        return view;
    });
    effectView.Property<"effect", &EffectViewState::effect>();
    effectView.Method<"contentView", &ContentView>();
    effectView.Method<"setFrame:">([](ui::View self, cg::Rect frame) {
        objc::SendSuper<"setFrame:", void>(self, frame);
        FitContentView(self);
    });
    effectView.Method<"setBounds:">([](ui::View self, cg::Rect bounds) {
        objc::SendSuper<"setBounds:", void>(self, bounds);
        FitContentView(self);
    });
    effectView.Method<"addSubview:">([](ui::View self, ui::View subview) {
        if (!(subview == StateOf<EffectViewState>(self).contentView.get())) {
            RaiseException("NSInternalInconsistencyException",
                           "a view was added to a UIVisualEffectView itself instead of to its contentView");
        }
        objc::SendSuper<"addSubview:", void>(self, subview);
    });
}

std::optional<BlurLook> BlurLookOf(ui::View view) {
    const objc::Class effectView = objc::ClassOf<ui::VisualEffectView>();
    if (effectView == nullptr || !view.isKindOfClass(effectView)) {
        return std::nullopt;
    }
    const ns::Object effect = StateOf<EffectViewState>(view).effect;
    if (!effect || !effect.isKindOfClass(objc::ClassOf<ui::BlurEffect>())) {
        return std::nullopt;
    }
    return LookOf(StateOf<EffectState>(effect).style);
}

} // namespace sim
