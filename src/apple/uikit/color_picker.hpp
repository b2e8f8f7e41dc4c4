#pragma once
// UIColorPickerViewController.

#include "apple/uikit/view_controller.hpp"

namespace ui {

struct ColorPickerViewController : ViewController {
    using ViewController::ViewController;
    static constexpr const char *kClassName = "UIColorPickerViewController";

    /// The delegate is not retained; it hears in `colorPickerViewControllerDidFinish:` that the user closed the picker,
    /// not that he swiped it away.
    /// https://developer.apple.com/documentation/uikit/uicolorpickerviewcontrollerdelegate
    void setDelegate(ns::Object delegate) const {
        objc::Send<"setDelegate:", void>(*this, delegate);
    }
    void setSelectedColor(Color color) const {
        objc::Send<"setSelectedColor:", void>(*this, color);
    }
    Color selectedColor() const {
        return objc::Send<"selectedColor", Color>(*this);
    }
};

} // namespace ui
