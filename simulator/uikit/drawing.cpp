#include "uikit/drawing.hpp"

#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <cairo.h>
#include <numbers>

namespace sim {
namespace {

bool IsDrawable(cg::Rect rect) {
    return rect.size.width > 0 && rect.size.height > 0;
}

} // namespace

void SetPaint(cairo_t *context, Rgba color, double alpha) {
    cairo_set_source_rgba(context, color.r, color.g, color.b, color.a * alpha);
}

void SetPaint(cairo_t *context, ui::Color color, double alpha) {
    SetPaint(context, RgbaOf(color), alpha);
}

void AddRounded(cairo_t *context, cg::Rect rect, double radius) {
    const auto [x, y] = rect.origin;
    const auto [width, height] = rect.size;
    const double most = std::max(0.0, std::min(width, height) / 2);
    const double r = radius > 0 ? std::min(radius, most) : 0; // NaN rounds nothing
    constexpr double kQuarter = std::numbers::pi / 2;
    cairo_new_sub_path(context);
    cairo_arc(context, x + width - r, y + r, r, -kQuarter, 0);
    cairo_arc(context, x + width - r, y + height - r, r, 0, kQuarter);
    cairo_arc(context, x + r, y + height - r, r, kQuarter, 2 * kQuarter);
    cairo_arc(context, x + r, y + r, r, 2 * kQuarter, 3 * kQuarter);
    cairo_close_path(context);
}

void FillRounded(cairo_t *context, cg::Rect rect, double radius) {
    if (IsDrawable(rect)) {
        AddRounded(context, rect, radius);
        cairo_fill(context);
    }
}

void StrokeRounded(cairo_t *context, cg::Rect rect, double radius, double width) {
    const cg::Rect line = Grown(rect, -width / 2);
    if (IsDrawable(line)) {
        AddRounded(context, line, radius - width / 2);
        cairo_set_line_width(context, width);
        cairo_stroke(context);
    }
}

void DrawKnob(cairo_t *context, cg::Rect rect, double radius, ui::Color color) {
    constexpr double kShade = 0.05;
    for (const double by : {2.0, 1.0, 0.5}) {
        cg::Rect shade = Grown(rect, by);
        shade.origin.y += 1;
        SetPaint(context, Rgba{0, 0, 0, kShade});
        FillRounded(context, shade, radius + by);
    }
    SetPaint(context, color);
    FillRounded(context, rect, radius);
}

} // namespace sim
