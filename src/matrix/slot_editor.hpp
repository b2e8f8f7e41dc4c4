#pragma once
// The editor of one slot's text, presented over the host's screen. Main thread only.

#include "apple/uikit/gesture_recognizer.hpp"

namespace corvel {

/// `dm_mL:`: a long press on a cell opens an editor with what the cell shows, be it only its number. Each press builds
/// an editor of its own, over one that is up already if need be.
void HandleCellLongPress(objc::Class, objc::SEL, ui::GestureRecognizer recognizer);

/// `dm_sv:`: stores the text exactly as typed, or removes the slot's key when there is none, and closes the editor. The
/// sender is the save button or the keyboard's "完成".
void HandleEditorSave(objc::Class, objc::SEL, ns::Object sender);

/// `dm_dv:`: closes the editor and stores nothing. The sender is the close or the cancel button.
void HandleEditorCancel(objc::Class, objc::SEL, ns::Object sender);

} // namespace corvel
