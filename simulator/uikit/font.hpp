#pragma once
// UIFont: the system font, regular and bold.

#include "apple/uikit/font.hpp"
#include "render/fonts.hpp"

namespace sim {

void RegisterFont();

/// The face of a font; for nil the system font at a label's size, 17 points.
FontFace FaceOf(ui::Font font);

} // namespace sim
