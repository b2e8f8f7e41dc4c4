#include "uikit/control_drawing.hpp"

#include "uikit/color.hpp"

#include <algorithm>
#include <cairo.h>
#include <numbers>

namespace sim {
namespace {

void RoundedPath(cairo_t *context, cg::Rect rect, double radius) {
    constexpr double kQuarter = std::numbers::pi / 2;
    const double r = std::min({radius, rect.size.width / 2, rect.size.height / 2});
    const double left = rect.origin.x;
    const double top = rect.origin.y;
    const double right = left + rect.size.width;
    const double bottom = top + rect.size.height;
    cairo_new_sub_path(context);
    cairo_arc(context, right - r, top + r, r, -kQuarter, 0);
    cairo_arc(context, right - r, bottom - r, r, 0, kQuarter);
    cairo_arc(context, left + r, bottom - r, r, kQuarter, 2 * kQuarter);
    cairo_arc(context, left + r, top + r, r, 2 * kQuarter, 3 * kQuarter);
    cairo_close_path(context);
}

cg::Rect Grown(cg::Rect rect, double by) {
    return {{rect.origin.x - by, rect.origin.y - by}, {rect.size.width + 2 * by, rect.size.height + 2 * by}};
}

bool IsDrawable(cg::Rect rect) {
    return rect.size.width > 0 && rect.size.height > 0;
}

} // namespace

void SetPaint(cairo_t *context, ui::Color color, double alpha) {
    const Rgba rgba = RgbaOf(color);
    cairo_set_source_rgba(context, rgba.r, rgba.g, rgba.b, rgba.a * alpha);
}

void FillRounded(cairo_t *context, cg::Rect rect, double radius) {
    if (IsDrawable(rect)) {
        RoundedPath(context, rect, radius);
        cairo_fill(context);
    }
}

void StrokeRounded(cairo_t *context, cg::Rect rect, double radius, double width) {
    const cg::Rect line = Grown(rect, -width / 2);
    if (IsDrawable(line)) {
        RoundedPath(context, line, radius - width / 2);
        cairo_set_line_width(context, width);
        cairo_stroke(context);
    }
}

void DrawKnob(cairo_t *context, cg::Rect rect, double radius, ui::Color color) {
    constexpr double kShade = 0.05;
    for (const double by : {2.0, 1.0, 0.5}) {
        cg::Rect shade = Grown(rect, by);
        shade.origin.y += 1;
        cairo_set_source_rgba(context, 0, 0, 0, kShade);
        FillRounded(context, shade, radius + by);
    }
    SetPaint(context, color);
    FillRounded(context, rect, radius);
}

} // namespace sim
