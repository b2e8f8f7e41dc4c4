#pragma once
// The matrix panel: opening and closing, laying out, moving. Main thread only.

#include "apple/uikit/gesture_recognizer.hpp"

namespace corvel {

/// Builds or re-lays out everything in the matrix panel from the stored settings and texts. Nothing while it is closed.
void LayoutMatrix();

/// `dm_ftap`: closes the settings panel and the matrix panel if open, else opens the matrix panel.
void HandleFloatTap(objc::Class, objc::SEL);

/// `dm_pM:`: moves the recogniser's panel (the matrix or the settings) with the finger, unbounded.
void HandlePanelPan(objc::Class, objc::SEL, ui::PanGestureRecognizer recognizer);

/// `dm_bM`: brings the matrix panel to the front, under the float buttons.
void HandlePanelTap(objc::Class, objc::SEL);

} // namespace corvel
