#include "render/blur.hpp"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <cstddef>
#include <vector>

namespace sim {
namespace {

constexpr int kPasses = 3; // three box filters in a row are a Gaussian to the eye

/// One row or column of one channel: `count` bytes, `stride` apart.
struct Strip {
    unsigned char *first;
    int count;
    std::ptrdiff_t stride;

    unsigned char &operator[](int index) const {
        return first[index * stride];
    }
};

/// Averages each byte with `radius` neighbours on both sides; `copy` holds at least count bytes.
void BoxFilter(Strip strip, int radius, std::vector<unsigned char> &copy) {
    const int last = strip.count - 1;
    for (int i = 0; i <= last; ++i) {
        copy[static_cast<std::size_t>(i)] = strip[i];
    }
    const auto at = [&](int index) -> unsigned { return copy[static_cast<std::size_t>(std::clamp(index, 0, last))]; };
    const auto size = static_cast<unsigned>(2 * radius + 1);
    unsigned sum = 0;
    for (int i = -radius; i <= radius; ++i) {
        sum += at(i);
    }
    for (int i = 0; i <= last; ++i) {
        strip[i] = static_cast<unsigned char>((sum + size / 2) / size);
        sum += at(i + radius + 1) - at(i - radius);
    }
}

} // namespace

void Blur(cairo_surface_t *image, double deviation) {
    cairo_surface_flush(image);
    unsigned char *data = cairo_image_surface_get_data(image);
    // The width of a box whose variance, three times over, is the Gaussian's.
    const int radius = static_cast<int>(std::lround((std::sqrt(4 * deviation * deviation + 1) - 1) / 2));
    if (data == nullptr || !(deviation > 0) || radius < 1) {
        return;
    }
    const int width = cairo_image_surface_get_width(image);
    const int height = cairo_image_surface_get_height(image);
    const std::ptrdiff_t rowStride = cairo_image_surface_get_stride(image);
    const int channels = cairo_image_surface_get_format(image) == CAIRO_FORMAT_A8 ? 1 : 4;
    std::vector<unsigned char> copy(static_cast<std::size_t>(std::max(width, height)));
    for (int pass = 0; pass < kPasses; ++pass) {
        for (int channel = 0; channel < channels; ++channel) {
            for (int y = 0; y < height; ++y) {
                BoxFilter({data + static_cast<std::ptrdiff_t>(y) * rowStride + channel, width, channels}, radius, copy);
            }
            for (int x = 0; x < width; ++x) {
                BoxFilter({data + static_cast<std::ptrdiff_t>(x) * channels + channel, height, rowStride}, radius,
                          copy);
            }
        }
    }
    cairo_surface_mark_dirty(image);
}

} // namespace sim
