#include "uikit/home_indicator.hpp"

#include "uikit/application.hpp"
#include "uikit/drawing.hpp"
#include "uikit/screen.hpp"

#include <cairo.h>
#include <cstddef>

namespace sim {
namespace {

// Points; the width is a part of the screen's.
constexpr double kHeight = 5;
constexpr double kBelow = 8;
constexpr double kWidth = 139.0 / 390;
constexpr double kWidthInLandscape = 0.27;

/// How bright (0 to 1) the surface is on average around a place of the user space; 0 outside it.
double BrightnessAround(cairo_t *context, cg::Point place) {
    constexpr int kAround = 8; // pixels
    cairo_surface_t *surface = cairo_get_target(context);
    cairo_surface_flush(surface);
    const unsigned char *data = cairo_image_surface_get_data(surface);
    cairo_user_to_device(context, &place.x, &place.y);
    double sum = 0;
    int count = 0;
    for (int y = static_cast<int>(place.y) - kAround; y <= static_cast<int>(place.y) + kAround; ++y) {
        for (int x = static_cast<int>(place.x) - kAround; x <= static_cast<int>(place.x) + kAround; ++x) {
            if (x < 0 || y < 0 || x >= cairo_image_surface_get_width(surface) ||
                y >= cairo_image_surface_get_height(surface)) {
                continue;
            }
            const unsigned char *pixel =
                data + std::ptrdiff_t{y} * cairo_image_surface_get_stride(surface) + std::ptrdiff_t{4} * x;
            sum += (0.0722 * pixel[0] + 0.7152 * pixel[1] + 0.2126 * pixel[2]) / 255;
            ++count;
        }
    }
    return count > 0 ? sum / count : 0;
}

} // namespace

void DrawHomeIndicator(cairo_t *context) {
    if (!(ScreenSafeArea().bottom > 0)) {
        return;
    }
    const cg::Size size = ScreenSize();
    const double width = size.width * (IsLandscape() ? kWidthInLandscape : kWidth);
    const cg::Rect bar{{(size.width - width) / 2, size.height - kBelow - kHeight}, {width, kHeight}};
    // What is looked at lies above the bar, which may be there already.
    const bool dark = BrightnessAround(context, {size.width / 2, bar.origin.y - kBelow}) < 0.5;
    SetPaint(context, dark ? Rgba{1, 1, 1, 1} : Rgba{0, 0, 0, 1});
    FillRounded(context, bar, kHeight / 2);
}

} // namespace sim
