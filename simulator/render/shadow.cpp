#include "render/shadow.hpp"

#include "render/blur.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace sim {
namespace {

constexpr double kStrongestBlur = 500; // a shadow this soft cannot be seen

const std::uint32_t *RowOf(cairo_surface_t *image, int y) {
    return reinterpret_cast<const std::uint32_t *>(cairo_image_surface_get_data(image) +
                                                   std::ptrdiff_t{y} * cairo_image_surface_get_stride(image));
}

/// The smallest rectangle that holds every pixel that is not clear.
PixelRect PaintedPart(cairo_surface_t *image) {
    const int width = cairo_image_surface_get_width(image);
    int left = std::numeric_limits<int>::max();
    int right = -1;
    int top = -1;
    int bottom = -1;
    for (int y = 0; y < cairo_image_surface_get_height(image); ++y) {
        const std::uint32_t *row = RowOf(image, y);
        const std::uint32_t *end = row + width;
        const std::uint32_t *first = std::find_if(row, end, [](std::uint32_t pixel) { return pixel >> 24 != 0; });
        if (first == end) {
            continue;
        }
        while ((*(end - 1)) >> 24 == 0) {
            --end;
        }
        left = std::min(left, static_cast<int>(first - row));
        right = std::max(right, static_cast<int>(end - row));
        top = top < 0 ? y : top;
        bottom = y + 1;
    }
    return top < 0 ? PixelRect{} : PixelRect{left, top, right - left, bottom - top};
}

} // namespace

ShadowMask MakeShadowMask(cairo_surface_t *picture, double deviation) {
    cairo_surface_flush(picture);
    const PixelRect part = PaintedPart(picture);
    if (part.IsEmpty()) {
        return {};
    }
    deviation = std::min(deviation, kStrongestBlur);
    const int margin = static_cast<int>(std::ceil(3 * deviation));
    Surface mask(cairo_image_surface_create(CAIRO_FORMAT_A8, part.width + 2 * margin, part.height + 2 * margin));
    unsigned char *data = cairo_image_surface_get_data(mask.get());
    if (data == nullptr) {
        return {};
    }
    for (int y = 0; y < part.height; ++y) {
        const std::uint32_t *from = RowOf(picture, part.y + y) + part.x;
        unsigned char *to = data + std::ptrdiff_t{y + margin} * cairo_image_surface_get_stride(mask.get()) + margin;
        std::transform(from, from + part.width, to,
                       [](std::uint32_t pixel) { return static_cast<unsigned char>(pixel >> 24); });
    }
    cairo_surface_mark_dirty(mask.get());
    Blur(mask.get(), deviation);
    double offsetX = 0;
    double offsetY = 0;
    cairo_surface_get_device_offset(picture, &offsetX, &offsetY);
    return {std::move(mask), part.x - margin - static_cast<int>(offsetX), part.y - margin - static_cast<int>(offsetY)};
}

} // namespace sim
