#pragma once
// The colours that the colour picker offers at once: a grid of swatches, and a spectrum.

#include "apple/coregraphics/geometry.hpp"
#include "apple/uikit/color.hpp"

struct _cairo;

namespace sim {

inline constexpr int kGridColumns = 12;
inline constexpr int kGridRows = 10;

/// The swatch at a row and a column of the grid. The first row holds greys, of one component; below it hues go across,
/// from dark to light.
ui::Color GridColor(int row, int column);

/// The colour at a place in the spectrum, from 0 to 1 each way: hues go down, lightness goes across.
ui::Color SpectrumColor(double x, double y);

/// Draws either into a rectangle (points) with round corners.
void DrawGrid(_cairo *context, cg::Rect rect);
void DrawSpectrum(_cairo *context, cg::Rect rect);

} // namespace sim
