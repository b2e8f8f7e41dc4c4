#pragma once
// Writing pictures to files.

#include <cairo.h>
#include <string>

namespace sim {

/// Writes an image surface, opaque or not, as a PNG file; false when that cannot be done. Packed for speed: pictures
/// are many and soon looked at, and Cairo's own writer packs one for longer than it takes to draw.
bool WritePng(cairo_surface_t *image, const std::string &path);

} // namespace sim
