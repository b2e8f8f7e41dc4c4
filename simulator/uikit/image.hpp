#pragma once
// UIImage, bitmap image contexts, drawing a view into one, saving to the album.

#include "apple/uikit/image.hpp"

struct _cairo_surface;

namespace sim {

/// How many image contexts are open.
std::size_t OpenImageContexts();

/// The image's pixels (ARGB32 or RGB24), owned by the image; null for nil and for an image without any.
_cairo_surface *PixelsOf(ui::Image image);

} // namespace sim
