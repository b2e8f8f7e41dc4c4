#pragma once
// Cairo's objects, owned; and pixel rectangles.

#include <cairo.h>
#include <memory>

namespace sim {

/// Gives up an object by a function of the library that it comes from.
template <auto Destroy> struct Destroyer {
    template <class T> void operator()(T *object) const {
        Destroy(object);
    }
};
using Surface = std::unique_ptr<cairo_surface_t, Destroyer<cairo_surface_destroy>>;
using Context = std::unique_ptr<cairo_t, Destroyer<cairo_destroy>>;
using Pattern = std::unique_ptr<cairo_pattern_t, Destroyer<cairo_pattern_destroy>>;

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
