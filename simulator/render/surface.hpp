#pragma once
// Cairo's objects, owned; and pixel rectangles.

#include <cairo.h>
#include <memory>

namespace sim {

struct DestroySurface {
    void operator()(cairo_surface_t *surface) const {
        cairo_surface_destroy(surface);
    }
};
using Surface = std::unique_ptr<cairo_surface_t, DestroySurface>;

struct DestroyContext {
    void operator()(cairo_t *context) const {
        cairo_destroy(context);
    }
};
using Context = std::unique_ptr<cairo_t, DestroyContext>;

struct DestroyPattern {
    void operator()(cairo_pattern_t *pattern) const {
        cairo_pattern_destroy(pattern);
    }
};
using Pattern = std::unique_ptr<cairo_pattern_t, DestroyPattern>;

/// Whole pixels of a surface, in device coordinates.
struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool IsEmpty() const {
        return width <= 0 || height <= 0;
    }
};

} // namespace sim
