#pragma once
// Reading, copying and clearing the debug log, and the switch that shows those features. Main thread only.

#include "apple/uikit/gesture_recognizer.hpp"

namespace corvel {

/// Removes the debug log from the store.
void ClearLogBuffer();

/// Shows or hides the debug rows of the settings panel, an open one included, and says so in a toast. Logging itself is
/// governed by a key of its own.
void SetDebugFeatures(bool on);

/// `dm_log`: shows the log in an alert that can copy and clear it.
void HandleShowLog(objc::Class, objc::SEL);

/// `dm_clearLog`: clears the log and says so.
void HandleClearLog(objc::Class, objc::SEL);

/// `dm_dlp:`: a long press asks whether to switch the debug features over.
void HandleDebugLongPress(objc::Class, objc::SEL, ui::GestureRecognizer recognizer);

/// `dm_edbg`: switches the debug features on without a question. No control is wired to it; it is an entry point.
void HandleEnableDebug(objc::Class, objc::SEL);

} // namespace corvel
