#include "uikit/color_palette.hpp"

#include "render/surface.hpp"
#include "uikit/drawing.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>

namespace sim {
namespace {

constexpr double kRadius = 8;

// The darkest, the fullest and the lightest row of hues; those between them lie evenly between. As users list the
// phone's own grid.
constexpr std::uint32_t kDarkest[kGridColumns] = {0x00374A, 0x011D57, 0x11053B, 0x2E063D, 0x3C071B, 0x5C0701,
                                                  0x5A1C00, 0x583300, 0x563D00, 0x666100, 0x4F5504, 0x263E0F};
constexpr std::uint32_t kFullest[kGridColumns] = {0x00A1D8, 0x0061FD, 0x4D22B2, 0x982ABC, 0xB92D5D, 0xFF4015,
                                                  0xFF6A00, 0xFFAB01, 0xFCC700, 0xFEFB41, 0xD9EC37, 0x76BB40};
constexpr std::uint32_t kLightest[kGridColumns] = {0xCBF0FF, 0xD2E2FE, 0xD8C9FE, 0xEFCAFE, 0xF9D3E0, 0xFFDAD8,
                                                   0xFFE2D6, 0xFEECD4, 0xFEF1D5, 0xFDFBDD, 0xF6FADB, 0xDEEED4};
constexpr int kFullestRow = 5;

Rgba Between(std::uint32_t from, std::uint32_t to, double part) {
    const auto channel = [&](int shift) { return std::lerp(from >> shift & 0xFF, to >> shift & 0xFF, part) / 255; };
    return {channel(16), channel(8), channel(0), 1};
}

Rgba GridRgba(int row, int column) {
    if (row == 0) {
        const double white = 1 - static_cast<double>(column) / (kGridColumns - 1);
        return {white, white, white, 1};
    }
    if (row <= kFullestRow) {
        return Between(kDarkest[column], kFullest[column], (row - 1.0) / (kFullestRow - 1));
    }
    return Between(kFullest[column], kLightest[column],
                   static_cast<double>(row - kFullestRow) / (kGridRows - 1 - kFullestRow));
}

Rgba SpectrumRgba(double x, double y) {
    const double strength = 1 - std::abs(2 * x - 1);
    const auto part = [&](double shift) {
        const double place = std::fmod(y + shift, 1.0);
        return x + strength * (std::clamp(std::abs(place * 6 - 3) - 1, 0.0, 1.0) - 0.5);
    };
    return {part(0), part(2.0 / 3), part(1.0 / 3), 1};
}

} // namespace

ui::Color GridColor(int row, int column) {
    const Rgba color = GridRgba(row, column);
    return row == 0 ? ui::Color::colorWithWhite(color.r, 1) : ui::Color::colorWithRed(color.r, color.g, color.b, 1);
}

ui::Color SpectrumColor(double x, double y) {
    const Rgba color = SpectrumRgba(std::clamp(x, 0.0, 1.0), std::clamp(y, 0.0, 1.0));
    return ui::Color::colorWithRed(color.r, color.g, color.b, 1);
}

void DrawGrid(cairo_t *context, cg::Rect rect) {
    const double width = rect.size.width / kGridColumns;
    const double height = rect.size.height / kGridRows;
    cairo_save(context);
    AddRounded(context, rect, kRadius, Corners::kContinuous);
    cairo_clip(context);
    cairo_set_antialias(context, CAIRO_ANTIALIAS_NONE); // no seams between neighbours
    for (int row = 0; row < kGridRows; ++row) {
        for (int column = 0; column < kGridColumns; ++column) {
            SetPaint(context, GridRgba(row, column));
            cairo_rectangle(context, rect.origin.x + column * width, rect.origin.y + row * height, width, height);
            cairo_fill(context);
        }
    }
    cairo_restore(context);
}

void DrawSpectrum(cairo_t *context, cg::Rect rect) {
    constexpr int kSide = 64; // of the picture that is stretched
    const Surface picture(cairo_image_surface_create(CAIRO_FORMAT_RGB24, kSide, kSide));
    unsigned char *data = cairo_image_surface_get_data(picture.get());
    if (data == nullptr) {
        return;
    }
    for (int y = 0; y < kSide; ++y) {
        auto *row =
            reinterpret_cast<std::uint32_t *>(data + std::ptrdiff_t{y} * cairo_image_surface_get_stride(picture.get()));
        for (int x = 0; x < kSide; ++x) {
            const Rgba color = SpectrumRgba((x + 0.5) / kSide, (y + 0.5) / kSide);
            const auto byte = [](double value) { return static_cast<std::uint32_t>(std::lround(value * 255)); };
            row[x] = byte(color.r) << 16 | byte(color.g) << 8 | byte(color.b);
        }
    }
    cairo_surface_mark_dirty(picture.get());
    cairo_save(context);
    AddRounded(context, rect, kRadius, Corners::kContinuous);
    cairo_clip(context);
    cairo_translate(context, rect.origin.x, rect.origin.y);
    cairo_scale(context, rect.size.width / kSide, rect.size.height / kSide);
    cairo_set_source_surface(context, picture.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_BILINEAR);
    cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_PAD);
    cairo_paint(context);
    cairo_restore(context);
}

} // namespace sim
