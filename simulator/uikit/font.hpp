#pragma once
// UIFont: the system font, regular and bold.

#include "apple/uikit/font.hpp"
#include "render/fonts.hpp"

namespace sim {

/// The face of a font; for nil the system font at a label's size, 17 points.
FontFace FaceOf(ui::Font font);

/// The font of labels and text fields that are given none: the system font at that size.
ui::Font DefaultFont();

} // namespace sim
