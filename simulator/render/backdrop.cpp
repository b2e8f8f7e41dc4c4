#include "render/backdrop.hpp"

#include "render/blur.hpp"

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

// A strong blur leaves no detail, so it is made of a picture reduced by this factor.
constexpr int kReduction = 4;
constexpr double kStrongDeviation = 8;

/// Moves each colour away from its grey (or towards it, below 1).
void Saturate(cairo_surface_t *image, double saturation) {
    cairo_surface_flush(image);
    unsigned char *data = cairo_image_surface_get_data(image);
    const int width = cairo_image_surface_get_width(image);
    for (int y = 0; y < cairo_image_surface_get_height(image); ++y) {
        unsigned char *pixel = data + std::ptrdiff_t{y} * cairo_image_surface_get_stride(image);
        for (int x = 0; x < width; ++x, pixel += 4) { // blue, green, red, alpha
            const double grey = 0.0722 * pixel[0] + 0.7152 * pixel[1] + 0.2126 * pixel[2];
            for (int channel = 0; channel < 3; ++channel) {
                const double value = grey + (pixel[channel] - grey) * saturation;
                pixel[channel] = static_cast<unsigned char>(std::clamp(std::lround(value), 0L, long{pixel[3]}));
            }
        }
    }
    cairo_surface_mark_dirty(image);
}

} // namespace

Pattern MakeBackdrop(std::span<cairo_surface_t *const> layers, PixelRect part, double deviation, double saturation) {
    const int reduction = deviation > kStrongDeviation ? kReduction : 1;
    // Room for what the blur draws in from outside, so that edges show what is there.
    const int margin = static_cast<int>(std::ceil(3 * deviation));
    const PixelRect taken{part.x - margin, part.y - margin, part.width + 2 * margin, part.height + 2 * margin};
    const int width = (taken.width + reduction - 1) / reduction;
    const int height = (taken.height + reduction - 1) / reduction;
    const Surface picture(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
    if (cairo_surface_status(picture.get()) != CAIRO_STATUS_SUCCESS) {
        return nullptr;
    }
    const Context context(cairo_create(picture.get()));
    cairo_scale(context.get(), 1.0 / reduction, 1.0 / reduction);
    cairo_translate(context.get(), -taken.x, -taken.y);
    for (cairo_surface_t *layer : layers) {
        cairo_set_source_surface(context.get(), layer, 0, 0);
        // Beyond the screen's edge its edge goes on; a group is clear there, as it is where nothing was drawn.
        cairo_pattern_set_extend(cairo_get_source(context.get()),
                                 layer == layers.front() ? CAIRO_EXTEND_PAD : CAIRO_EXTEND_NONE);
        cairo_paint(context.get());
    }
    Blur(picture.get(), deviation / reduction);
    Saturate(picture.get(), saturation);
    Pattern pattern(cairo_pattern_create_for_surface(picture.get()));
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
    cairo_matrix_t toPicture; // from device coordinates
    cairo_matrix_init_scale(&toPicture, 1.0 / reduction, 1.0 / reduction);
    cairo_matrix_translate(&toPicture, -taken.x, -taken.y);
    cairo_pattern_set_matrix(pattern.get(), &toPicture);
    return pattern;
}

} // namespace sim
