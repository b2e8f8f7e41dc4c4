#pragma once
// What the keyboard announces of itself, and the rectangles in it.

#include "apple/coregraphics/geometry.hpp"
#include "apple/foundation/notifications.hpp"

namespace ui {

/// NSValue with what UIKit adds to it.
struct Value : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "NSValue";

    cg::Rect CGRectValue() const {
        return objc::Send<"CGRectValue", cg::Rect>(*this);
    }
};

} // namespace ui

extern "C" {
/// Posted before the keyboard comes up or changes its size.
extern const ns::String UIKeyboardWillShowNotification;
/// Posted before the keyboard goes down.
extern const ns::String UIKeyboardWillHideNotification;
/// In their user info: the keyboard's frame at the end of its movement, in screen coordinates.
extern const ns::String UIKeyboardFrameEndUserInfoKey;
/// In their user info: how long the movement takes, in seconds.
extern const ns::String UIKeyboardAnimationDurationUserInfoKey;
}
