#pragma once
// UISwitch.

#include "apple/uikit/button.hpp"

namespace ui {

struct Switch : Control {
    using Control::Control;
    static constexpr const char *kClassName = "UISwitch";

    bool isOn() const {
        return objc::Send<"isOn", bool>(*this);
    }
    void setOn(bool on) const {
        objc::Send<"setOn:", void>(*this, on);
    }
};

} // namespace ui
