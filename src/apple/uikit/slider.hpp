#pragma once
// UISlider.

#include "apple/uikit/button.hpp"

namespace ui {

struct Slider : Control {
    using Control::Control;
    static constexpr const char *kClassName = "UISlider";

    float value() const {
        return objc::Send<"value", float>(*this);
    }
    /// Moved into the slider's range.
    void setValue(float value) const {
        objc::Send<"setValue:", void>(*this, value);
    }
    void setMinimumValue(float value) const {
        objc::Send<"setMinimumValue:", void>(*this, value);
    }
    void setMaximumValue(float value) const {
        objc::Send<"setMaximumValue:", void>(*this, value);
    }
};

} // namespace ui
