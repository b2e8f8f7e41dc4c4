#pragma once
// The blurred picture that a visual-effect view shows of what lies behind it.

#include "render/surface.hpp"

#include <span>

namespace sim {

/// A part of the layered surfaces, the lowest first, blurred with this standard deviation (pixels), its colours'
/// saturation multiplied. The result fills the rectangle (device coordinates) when painted as a pattern there with an
/// identity matrix; empty when memory is short.
Pattern MakeBackdrop(std::span<cairo_surface_t *const> layers, PixelRect part, double deviation, double saturation);

} // namespace sim
