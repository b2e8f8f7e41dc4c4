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

BlurLook LookOf(UIBlurEffectStyle style) {
    switch (style) {
    case UIBlurEffectStyleExtraLight:
        return Tinted(0.97, 0.82);
    case UIBlurEffectStyleLight:
        return Tinted(1, 0.3);
    case UIBlurEffectStyleDark:
        return Tinted(0.145, 0.7);
    case UIBlurEffectStyleExtraDark:
        return Tinted(0.06, 0.8);
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
