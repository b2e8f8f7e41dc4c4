#pragma once
// What the plain controls of the settings panel do. Main thread only.

#include "apple/uikit/slider.hpp"
#include "apple/uikit/switch.hpp"

namespace corvel {

/// `dm_sw:`: stores the switch's bool and refreshes what depends on it.
void HandleSwitchChange(objc::Class, objc::SEL, ui::Switch control);

/// `dm_sl:`: stores the slider's number, at each step of a drag, and rebuilds the matrix.
void HandleSliderChange(objc::Class, objc::SEL, ui::Slider slider);

/// `dm_bm`: brings the settings panel to the front, under the float buttons.
void HandleSettingsPanelTap(objc::Class, objc::SEL);

/// `dm_cm`: closes the settings panel.
void HandleSettingsClose(objc::Class, objc::SEL);

} // namespace corvel
