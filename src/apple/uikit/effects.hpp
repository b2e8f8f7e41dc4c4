#pragma once
// Blur effects and the view that shows them.

#include "apple/uikit/view.hpp"

namespace ui {

/// UIBlurEffectStyle.
enum class BlurStyle : long { kDark = 2, kSystemMaterial = 8 };
struct BlurEffect : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIBlurEffect";

    static BlurEffect effectWithStyle(BlurStyle style) {
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
