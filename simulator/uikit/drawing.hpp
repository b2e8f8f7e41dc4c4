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

/// How the corners of a rectangle are rounded: by quarters of a circle, or by curves that leave the sides more gently.
/// https://developer.apple.com/documentation/quartzcore/calayercornercurve
enum class Corners { kCircular, kContinuous };

/// Adds a rectangle (points) to the path, its corners rounded by at most half its shorter side.
void AddRounded(_cairo *context, cg::Rect rect, double radius, Corners corners = Corners::kCircular);

/// Fills such a rectangle.
void FillRounded(_cairo *context, cg::Rect rect, double radius, Corners corners = Corners::kCircular);

/// Strokes along the inside of such a rectangle's edge.
void StrokeRounded(_cairo *context, cg::Rect rect, double radius, double width);

/// A knob with a soft shadow below it, as switches, sliders and segments have.
void DrawKnob(_cairo *context, cg::Rect rect, double radius, ui::Color color);

/// The end of a selection that a finger could draw, at the caret's place there: a line with a dot above it at the start
/// of the selection, below it at its end.
void DrawGrabber(_cairo *context, cg::Rect caret, bool atStart);

} // namespace sim
