#pragma once
// Dragging the float button and, with it, the capture button.

#include "apple/uikit/gesture_recognizer.hpp"

namespace corvel {

/// Lets a drag on either button move them both.
void AddDragRecognizer(ui::View button);

/// `dm_panF:`: moves the pair with the finger, led by the float button; at the end keeps it on the screen, docks it
/// when that is wanted, and stores its place.
void HandleFloatDrag(objc::Class, objc::SEL, ui::PanGestureRecognizer recognizer);

} // namespace corvel
