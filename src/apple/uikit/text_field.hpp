#pragma once
// UITextField.

#include "apple/uikit/button.hpp"

enum UIKeyboardType : long { UIKeyboardTypeDefault = 0, UIKeyboardTypeNumberPad = 4 };

enum UITextBorderStyle : long { UITextBorderStyleNone = 0, UITextBorderStyleRoundedRect = 3 };

namespace ui {

/// Whatever adopts the UITextInputTraits protocol.
struct TextInputTraits : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UITextInputTraits";

    void setKeyboardType(UIKeyboardType type) const {
        objc::Send<"setKeyboardType:", void>(*this, type);
    }
};

struct TextField : Control {
    using Control::Control;
    static constexpr const char *kClassName = "UITextField";

    ns::String text() const {
        return objc::Send<"text", ns::String>(*this);
    }
    void setText(ns::String text) const {
        objc::Send<"setText:", void>(*this, text);
    }
    void setPlaceholder(ns::String placeholder) const {
        objc::Send<"setPlaceholder:", void>(*this, placeholder);
    }
    void setInputAccessoryView(View view) const {
        objc::Send<"setInputAccessoryView:", void>(*this, view);
    }
    void setBorderStyle(UITextBorderStyle style) const {
        objc::Send<"setBorderStyle:", void>(*this, style);
    }
};

} // namespace ui
