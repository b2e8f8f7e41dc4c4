#pragma once
// Blur effects and the view that shows them.

#include "apple/uikit/view.hpp"

enum UIBlurEffectStyle : long {
    UIBlurEffectStyleExtraLight = 0,
    UIBlurEffectStyleLight = 1,
    UIBlurEffectStyleDark = 2,
    UIBlurEffectStyleExtraDark = 3,
    UIBlurEffectStyleRegular = 4,
    UIBlurEffectStyleProminent = 5,
    // Ultra-thin, thin, regular, thick and chrome, then all five again for light, and for dark.
    UIBlurEffectStyleSystemUltraThinMaterial = 6,
    UIBlurEffectStyleSystemMaterial = 8,
    UIBlurEffectStyleSystemChromeMaterial = 10,
    UIBlurEffectStyleSystemUltraThinMaterialLight = 11,
    UIBlurEffectStyleSystemUltraThinMaterialDark = 16,
    UIBlurEffectStyleSystemChromeMaterialDark = 20,
};

namespace ui {

struct BlurEffect : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIBlurEffect";

    static BlurEffect effectWithStyle(UIBlurEffectStyle style) {
        return objc::SendClass<BlurEffect, "effectWithStyle:", BlurEffect>(style);
    }
};

struct VisualEffectView : View {
    using View::View;
    static constexpr const char *kClassName = "UIVisualEffectView";

    VisualEffectView initWithEffect(BlurEffect effect) const {
        return objc::Send<"initWithEffect:", VisualEffectView>(*this, effect);
    }
    View contentView() const {
        return objc::Send<"contentView", View>(*this);
    }
};

} // namespace ui
