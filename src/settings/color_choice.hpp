#pragma once
// Choosing a colour with the system's picker. Main thread only.

#include "apple/uikit/button.hpp"
#include "apple/uikit/color_picker.hpp"

namespace corvel {

/// `dm_clr:`: presents a colour picker for the button's preference.
void HandleColorButton(objc::Class, objc::SEL, ui::Button button);

/// `dm_cdn:`: stores the picker's colour, rebuilds the matrix and closes the settings panel. Nothing for a picker that
/// is not ours or whose colour was taken already.
void HandleColorPicked(objc::Class, objc::SEL, ui::ColorPickerViewController picker);

/// `presentationControllerDidDismiss:`: the same for a picker that was swiped away.
void HandlePickerSwipedAway(objc::Class, objc::SEL, ui::PresentationController controller);

} // namespace corvel
