#pragma once
// Gaussian blur of image surfaces.

struct _cairo_surface;

namespace sim {

/// Blurs an image surface (ARGB32 or A8) in place, very nearly with a Gaussian of this standard deviation (pixels).
/// What lies beyond an edge counts as what lies on it.
void Blur(_cairo_surface *image, double deviation);

} // namespace sim
