#pragma once
// What the colour picker's sheet shows.

#include "apple/uikit/color_picker.hpp"

namespace sim {

/// Defines the classes of the sheet's view and of what is on it.
void DefineColorPickerView();

/// The sheet's view; the picker is not retained.
objc::Ref<ui::View> MakeColorPickerView(ui::ColorPickerViewController picker);

/// Brings the sliders and the sample in line with the picker's colour.
void ShowPickedColor(ui::View view);

} // namespace sim
