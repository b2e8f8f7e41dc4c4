#pragma once
// Shapes that controls are drawn with.

#include "apple/uikit/view.hpp"

struct _cairo;

namespace sim {

/// How much of a disabled control's colours is left.
inline constexpr double kDisabledAlpha = 0.5;

/// Sets what is painted next; alpha multiplies the colour's own.
void SetPaint(_cairo *context, ui::Color color, double alpha = 1);

/// Fills a rectangle (points) whose corners are rounded by at most half its shorter side.
void FillRounded(_cairo *context, cg::Rect rect, double radius);

/// Strokes along the inside of such a rectangle's edge.
void StrokeRounded(_cairo *context, cg::Rect rect, double radius, double width);

/// A white knob with a soft edge, as switches, sliders and segments have.
void DrawKnob(_cairo *context, cg::Rect rect, double radius, ui::Color color);

} // namespace sim
