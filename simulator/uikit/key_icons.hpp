#pragma once
// The pictures on and below a keyboard's keys, drawn with lines.

#include "apple/coregraphics/geometry.hpp"

struct _cairo;

namespace sim {

enum class KeyIcon { kShift, kDelete, kFace, kGlobe, kMicrophone, kMore };

/// Draws a picture in the middle of a rectangle (points) with what is set to be painted.
void DrawKeyIcon(_cairo *context, cg::Rect rect, KeyIcon icon);

} // namespace sim
