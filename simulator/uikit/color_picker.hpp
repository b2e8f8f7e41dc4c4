#pragma once
// UIColorPickerViewController: a sheet with swatches.

#include "apple/uikit/color_picker.hpp"

namespace sim {

/// The picker that is presented at the moment; nil when none is.
ui::ColorPickerViewController PresentedColorPicker();

/// The user chooses a colour: the picker has it from now on and tells its delegate.
void ChooseColor(ui::ColorPickerViewController picker, ui::Color color);

/// Whether the user may set an opacity.
bool SupportsAlpha(ui::ColorPickerViewController picker);

} // namespace sim
