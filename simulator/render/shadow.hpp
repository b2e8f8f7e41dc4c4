#pragma once
// Soft shadows of drawn pictures.

#include "render/surface.hpp"

namespace sim {

/// The blurred outline of a picture and where its top left corner lies, in device coordinates.
struct ShadowMask {
    Surface image; // A8; empty when the picture shows nothing
    int x = 0;
    int y = 0;
};

/// The alpha of an ARGB32 image surface, blurred with this standard deviation (pixels). The surface's device offset
/// says where it lies.
ShadowMask MakeShadowMask(cairo_surface_t *picture, double deviation);

} // namespace sim
