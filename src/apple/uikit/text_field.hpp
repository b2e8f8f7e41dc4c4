#pragma once
// UITextField.

#include "apple/uikit/button.hpp"

namespace ui {

/// UIKeyboardType.
enum class KeyboardType : long { kNumberPad = 4 };
/// Whatever adopts the UITextInputTraits protocol.
struct TextInputTraits : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UITextInputTraits";

    void setKeyboardType(KeyboardType type) const {
        objc::Send<"setKeyboardType:", void>(*this, type);
    }
};

/// UITextBorderStyle.
enum class TextBorderStyle : long { kRoundedRect = 3 };
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
    void setBorderStyle(TextBorderStyle style) const {
        objc::Send<"setBorderStyle:", void>(*this, style);
    }
};

} // namespace ui
