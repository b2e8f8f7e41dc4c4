#include "render/blur.hpp"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace sim {
namespace {

constexpr int kPasses = 3; // three box filters in a row are a Gaussian to the eye

/// A box filter that averages a value with `radius` neighbours on both sides, in whole numbers: a division for each
/// byte would take most of the time.
class Box {
  public:
    explicit Box(int radius) : radius_(radius), inverse_((1U << kShift) / static_cast<unsigned>(2 * radius + 1)) {}

    int radius() const {
        return radius_;
    }
    unsigned char Average(std::uint32_t sum) const {
        return static_cast<unsigned char>((sum * inverse_ + (1U << (kShift - 1))) >> kShift);
    }

  private:
    static constexpr int kShift = 24; // 255 times this many still fits

    int radius_;
    std::uint32_t inverse_;
};

/// Filters a row of pixels of `kChannels` bytes; `padded` has room for it and for the radius on both sides.
template <int kChannels> void FilterRow(unsigned char *row, int width, Box box, std::vector<unsigned char> &padded) {
    const auto margin = std::ptrdiff_t{kChannels} * box.radius();
    const auto length = std::ptrdiff_t{kChannels} * width;
    unsigned char *const first = padded.data();
    for (std::ptrdiff_t at = 0; at < margin; at += kChannels) {
        std::copy_n(row, kChannels, first + at);
        std::copy_n(row + length - kChannels, kChannels, first + margin + length + at);
    }
    std::copy_n(row, length, first + margin);
    std::uint32_t sums[kChannels]{};
    const unsigned char *leaving = first;
    const unsigned char *entering = leaving + 2 * margin;
    for (const unsigned char *at = leaving; at < entering; at += kChannels) {
        for (int channel = 0; channel < kChannels; ++channel) {
            sums[channel] += at[channel];
        }
    }
    for (int x = 0; x < width; ++x, leaving += kChannels, entering += kChannels, row += kChannels) {
        for (int channel = 0; channel < kChannels; ++channel) {
            sums[channel] += entering[channel];
            row[channel] = box.Average(sums[channel]);
            sums[channel] -= leaving[channel];
        }
    }
}

template <int kChannels> void FilterRows(unsigned char *data, int width, int height, std::ptrdiff_t stride, Box box) {
    std::vector<unsigned char> padded(static_cast<std::size_t>((width + 2 * box.radius()) * kChannels));
    for (int y = 0; y < height; ++y) {
        for (int pass = 0; pass < kPasses; ++pass) {
            FilterRow<kChannels>(data + y * stride, width, box, padded);
        }
    }
}

/// Filters all columns at once, row after row.
void FilterColumns(const unsigned char *from, unsigned char *to, int height, std::ptrdiff_t stride, Box box) {
    const auto bytes = static_cast<std::size_t>(stride);
    const auto row = [&](int y) { return from + std::clamp(y, 0, height - 1) * stride; };
    std::vector<std::uint32_t> sums(bytes);
    for (int y = -box.radius(); y < box.radius(); ++y) {
        const unsigned char *entering = row(y);
        for (std::size_t i = 0; i < bytes; ++i) {
            sums[i] += entering[i];
        }
    }
    for (int y = 0; y < height; ++y, to += stride) {
        const unsigned char *entering = row(y + box.radius());
        const unsigned char *leaving = row(y - box.radius());
        for (std::size_t i = 0; i < bytes; ++i) {
            const std::uint32_t sum = sums[i] + entering[i];
            to[i] = box.Average(sum);
            sums[i] = sum - leaving[i];
        }
    }
}

} // namespace

void Blur(cairo_surface_t *image, double deviation) {
    cairo_surface_flush(image);
    unsigned char *data = cairo_image_surface_get_data(image);
    // The width of a box whose variance, three times over, is the Gaussian's.
    const int radius = static_cast<int>(std::lround((std::sqrt(4 * deviation * deviation + 1) - 1) / 2));
    const int height = cairo_image_surface_get_height(image);
    if (data == nullptr || !(deviation > 0) || radius < 1 || height < 1) {
        return;
    }
    const Box box(radius);
    const int width = cairo_image_surface_get_width(image);
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(image);
    if (cairo_image_surface_get_format(image) == CAIRO_FORMAT_A8) {
        FilterRows<1>(data, width, height, stride, box);
    } else {
        FilterRows<4>(data, width, height, stride, box);
    }
    std::vector<unsigned char> other(static_cast<std::size_t>(height * stride));
    FilterColumns(data, other.data(), height, stride, box);
    FilterColumns(other.data(), data, height, stride, box);
    FilterColumns(data, other.data(), height, stride, box);
    std::ranges::copy(other, data);
    cairo_surface_mark_dirty(image);
}

} // namespace sim
