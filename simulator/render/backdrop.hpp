#pragma once
// The blurred picture that a visual-effect view shows of what lies behind it.

#include "render/surface.hpp"

#include <span>

namespace sim {

/// What is done to the picture.
struct BackdropLook {
    double deviation = 0;  // of the blur, pixels
    double saturation = 1; // 1 leaves colours as they are
    double tint[4]{};      // red, green, blue, alpha, laid over the result
};

/// A part of the layered surfaces, the lowest first, made to look so. The result fills the rectangle (device
/// coordinates) when painted as a pattern there with an identity matrix; empty when memory is short or nothing lies
/// there.
Pattern MakeBackdrop(std::span<cairo_surface_t *const> layers, PixelRect part, const BackdropLook &look);

} // namespace sim
