#pragma once
// Haptics.

#include "apple/foundation/object.hpp"

namespace ui {

/// UIImpactFeedbackStyle.
enum class ImpactStyle : long { kMedium = 1 };
struct ImpactFeedbackGenerator : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIImpactFeedbackGenerator";

    ImpactFeedbackGenerator initWithStyle(ImpactStyle style) const {
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
