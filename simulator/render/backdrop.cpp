#include "render/backdrop.hpp"

#include "render/blur.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace sim {
namespace {

// A strong blur leaves no detail, so it is made of a picture that is reduced as long as this much (pixels) is left.
constexpr double kLeastDeviation = 5;
constexpr int kMostReduction = 16;

int ReductionFor(double deviation) {
    int reduction = 1;
    while (reduction < kMostReduction && deviation / (2 * reduction) >= kLeastDeviation) {
        reduction *= 2;
    }
    return reduction;
}

/// The part with room for what the blur draws in from outside, so that edges show what is there, within the lowest
/// layer: beyond its edge, its edge goes on. It starts at whole squares of the reduction, or a blur would flicker while
/// its view moves.
PixelRect Taken(cairo_surface_t *lowest, PixelRect part, double deviation, int reduction) {
    const int margin = static_cast<int>(std::ceil(3 * deviation));
    const int left = std::max(part.x - margin, 0) / reduction * reduction;
    const int top = std::max(part.y - margin, 0) / reduction * reduction;
    const int right = std::min(part.x + part.width + margin, cairo_image_surface_get_width(lowest));
    const int bottom = std::min(part.y + part.height + margin, cairo_image_surface_get_height(lowest));
    return {left, top, right - left, bottom - top};
}

/// What the layers show there, one pixel a pixel; empty when memory is short.
Surface Flattened(std::span<cairo_surface_t *const> layers, PixelRect part) {
    Surface picture(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, part.width, part.height));
    if (cairo_surface_status(picture.get()) != CAIRO_STATUS_SUCCESS) {
        return nullptr;
    }
    const Context context(cairo_create(picture.get()));
    for (cairo_surface_t *layer : layers) {
        cairo_set_source_surface(context.get(), layer, -part.x, -part.y);
        cairo_paint(context.get());
    }
    cairo_surface_flush(picture.get());
    return picture;
}

/// Each pixel the average of a square of `reduction` pixels, of fewer at the right and the lower edge.
Surface Reduced(cairo_surface_t *picture, int reduction) {
    const int width = cairo_image_surface_get_width(picture);
    const int height = cairo_image_surface_get_height(picture);
    const int columns = (width + reduction - 1) / reduction;
    const int rows = (height + reduction - 1) / reduction;
    Surface reduced(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, columns, rows));
    if (cairo_surface_status(reduced.get()) != CAIRO_STATUS_SUCCESS) {
        return nullptr;
    }
    const unsigned char *from = cairo_image_surface_get_data(picture);
    unsigned char *to = cairo_image_surface_get_data(reduced.get());
    const std::ptrdiff_t fromStride = cairo_image_surface_get_stride(picture);
    const std::ptrdiff_t toStride = cairo_image_surface_get_stride(reduced.get());
    const auto bytes = static_cast<std::size_t>(4) * static_cast<std::size_t>(width);
    std::vector<std::uint16_t> sums(bytes);
    for (int row = 0; row < rows; ++row) {
        std::ranges::fill(sums, std::uint16_t{0});
        const int lines = std::min(reduction, height - row * reduction);
        for (int line = 0; line < lines; ++line, from += fromStride) {
            for (std::size_t i = 0; i < bytes; ++i) {
                sums[i] = static_cast<std::uint16_t>(sums[i] + from[i]);
            }
        }
        for (int column = 0; column < columns; ++column) {
            const int pixels = std::min(reduction, width - column * reduction);
            const std::uint16_t *first = sums.data() + std::ptrdiff_t{4} * column * reduction;
            for (int channel = 0; channel < 4; ++channel) {
                unsigned sum = 0;
                for (int pixel = 0; pixel < pixels; ++pixel) {
                    sum += first[4 * pixel + channel];
                }
                to[row * toStride + std::ptrdiff_t{4} * column + channel] =
                    static_cast<unsigned char>(sum / static_cast<unsigned>(pixels * lines));
            }
        }
    }
    cairo_surface_mark_dirty(reduced.get());
    return reduced;
}

/// Moves each colour away from its grey (or towards it, below 1) and lays the tint over it.
void Color(cairo_surface_t *image, const BackdropLook &look) {
    cairo_surface_flush(image);
    unsigned char *data = cairo_image_surface_get_data(image);
    const int width = cairo_image_surface_get_width(image);
    const double cover = look.tint[3];
    const double tint[] = {look.tint[2] * cover * 255, look.tint[1] * cover * 255, look.tint[0] * cover * 255};
    for (int y = 0; y < cairo_image_surface_get_height(image); ++y) {
        unsigned char *pixel = data + std::ptrdiff_t{y} * cairo_image_surface_get_stride(image);
        for (int x = 0; x < width; ++x, pixel += 4) { // blue, green, red, alpha
            const double alpha = pixel[3];
            const double grey = 0.0722 * pixel[0] + 0.7152 * pixel[1] + 0.2126 * pixel[2];
            for (int channel = 0; channel < 3; ++channel) {
                const double value = std::clamp(grey + (pixel[channel] - grey) * look.saturation, 0.0, alpha);
                pixel[channel] = static_cast<unsigned char>(std::lround(value * (1 - cover) + tint[channel]));
            }
            pixel[3] = static_cast<unsigned char>(std::lround(alpha * (1 - cover) + cover * 255));
        }
    }
    cairo_surface_mark_dirty(image);
}

} // namespace

Pattern MakeBackdrop(std::span<cairo_surface_t *const> layers, PixelRect part, const BackdropLook &look) {
    const int reduction = ReductionFor(look.deviation);
    const PixelRect taken = Taken(layers.front(), part, look.deviation, reduction);
    if (taken.IsEmpty()) {
        return nullptr;
    }
    Surface picture = Flattened(layers, taken);
    if (picture && reduction > 1) {
        picture = Reduced(picture.get(), reduction);
    }
    if (!picture) {
        return nullptr;
    }
    Blur(picture.get(), look.deviation / reduction);
    Color(picture.get(), look);
    Pattern pattern(cairo_pattern_create_for_surface(picture.get()));
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
    cairo_pattern_set_filter(pattern.get(), CAIRO_FILTER_BILINEAR);
    cairo_matrix_t toPicture; // from device coordinates
    cairo_matrix_init_scale(&toPicture, 1.0 / reduction, 1.0 / reduction);
    cairo_matrix_translate(&toPicture, -taken.x, -taken.y);
    cairo_pattern_set_matrix(pattern.get(), &toPicture);
    return pattern;
}

} // namespace sim
