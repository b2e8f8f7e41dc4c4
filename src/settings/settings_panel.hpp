#pragma once
// The settings panel: a card on the overlay window that edits every preference a user may see. Main thread only.

#include "apple/uikit/gesture_recognizer.hpp"

namespace corvel {

class Panel;

Panel &SettingsPanel();

/// Builds the panel from the stored preferences in the middle of the screen and shows it with a spring. A panel that
/// stands already (fading out, perhaps) gives way. Nothing without an overlay window.
void BuildSettingsPanel();

/// Builds an existing panel anew at its place, at once and in full size. Nothing without a panel.
void RebuildSettingsPanel();

/// `dm_flp:`: a long press on the float button opens the settings panel, or closes the open one.
void HandleFloatLongPress(objc::Class, objc::SEL, ui::GestureRecognizer recognizer);

/// `dm_bm`: brings the settings panel to the front, under the float buttons.
void HandleSettingsPanelTap(objc::Class, objc::SEL);

/// `dm_cm`: closes the settings panel.
void HandleSettingsClose(objc::Class, objc::SEL);

} // namespace corvel
