#pragma once
// Colours and shapes that views are drawn with.

#include "apple/coregraphics/geometry.hpp"
#include "uikit/color.hpp"

struct _cairo;

namespace sim {

/// The part of its colours' alpha that a disabled control keeps.
inline constexpr double kDisabledAlpha = 0.5;

/// Sets what is painted next; alpha multiplies the colour's own.
void SetPaint(_cairo *context, Rgba color, double alpha = 1);
void SetPaint(_cairo *context, ui::Color color, double alpha = 1);

/// Adds a rectangle (points) to the path, its corners rounded by at most half its shorter side.
void AddRounded(_cairo *context, cg::Rect rect, double radius);

/// Fills such a rectangle.
void FillRounded(_cairo *context, cg::Rect rect, double radius);

/// Strokes along the inside of such a rectangle's edge.
void StrokeRounded(_cairo *context, cg::Rect rect, double radius, double width);

/// A white knob with a soft edge, as switches, sliders and segments have.
void DrawKnob(_cairo *context, cg::Rect rect, double radius, ui::Color color);

} // namespace sim
