#pragma once
// UIColorPickerViewController.

#include "apple/uikit/view_controller.hpp"

namespace ui {

struct ColorPickerViewController : ViewController {
    using ViewController::ViewController;
    static constexpr const char *kClassName = "UIColorPickerViewController";

    /// The delegate is not retained; it hears of the end in `colorPickerViewControllerDidFinish:`.
    void setDelegate(ns::Object delegate) const {
        objc::Send<"setDelegate:", void>(*this, delegate);
    }
    Color selectedColor() const {
        return objc::Send<"selectedColor", Color>(*this);
    }
};

} // namespace ui
