#pragma once
// Haptics.

#include "apple/foundation/object.hpp"

enum UIImpactFeedbackStyle : long { UIImpactFeedbackStyleMedium = 1 };

namespace ui {

struct ImpactFeedbackGenerator : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIImpactFeedbackGenerator";

    ImpactFeedbackGenerator initWithStyle(UIImpactFeedbackStyle style) const {
        return objc::Send<"initWithStyle:", ImpactFeedbackGenerator>(*this, style);
    }
    void prepare() const {
        objc::Send<"prepare", void>(*this);
    }
    void impactOccurred() const {
        objc::Send<"impactOccurred", void>(*this);
    }
};

} // namespace ui
