#include "uikit/drawing.hpp"

#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <cairo.h>
#include <iterator>
#include <numbers>

namespace sim {
namespace {

bool IsDrawable(cg::Rect rect) {
    return rect.size.width > 0 && rect.size.height > 0;
}

/// A continuous corner begins this many radii before the corner of the rectangle.
constexpr double kContinuousReach = 1.5287;

/// One continuous corner from its start to its end, in radii from the corner of the rectangle: along the side that is
/// come from, along the side that is gone to. Measured on the phone's own shapes.
struct CornerPoint {
    double from;
    double to;
};
constexpr CornerPoint kContinuous[] = {
    {kContinuousReach, 0}, {1.0885, 0},      {0.8684, 0}, {0.6315, 0.0749}, {0.3728, 0.1691},
    {0.1691, 0.3728},      {0.0749, 0.6315}, {0, 0.8684}, {0, 1.0885},      {0, kContinuousReach},
};

/// Goes clockwise around a rectangle whose sides have room for its corners.
void AddContinuous(cairo_t *context, cg::Rect rect, double radius) {
    const auto [left, top] = rect.origin;
    const double right = left + rect.size.width;
    const double bottom = top + rect.size.height;
    // Each corner, the way back along the side that is come from, and the way on.
    const struct {
        cg::Point at, back, on;
    } corners[] = {{{right, top}, {-1, 0}, {0, 1}},
                   {{right, bottom}, {0, -1}, {-1, 0}},
                   {{left, bottom}, {1, 0}, {0, -1}},
                   {{left, top}, {0, 1}, {1, 0}}};
    cairo_new_sub_path(context);
    for (const auto &corner : corners) {
        const auto place = [&](CornerPoint point) {
            return cg::Point{corner.at.x + radius * (corner.back.x * point.from + corner.on.x * point.to),
                             corner.at.y + radius * (corner.back.y * point.from + corner.on.y * point.to)};
        };
        const cg::Point start = place(kContinuous[0]);
        cairo_line_to(context, start.x, start.y);
        for (std::size_t i = 1; i + 2 < std::size(kContinuous); i += 3) {
            const cg::Point first = place(kContinuous[i]);
            const cg::Point second = place(kContinuous[i + 1]);
            const cg::Point end = place(kContinuous[i + 2]);
            cairo_curve_to(context, first.x, first.y, second.x, second.y, end.x, end.y);
        }
    }
    cairo_close_path(context);
}

} // namespace

void SetPaint(cairo_t *context, Rgba color, double alpha) {
    cairo_set_source_rgba(context, color.r, color.g, color.b, color.a * alpha);
}

void SetPaint(cairo_t *context, ui::Color color, double alpha) {
    SetPaint(context, RgbaOf(color), alpha);
}

void AddRounded(cairo_t *context, cg::Rect rect, double radius, Corners corners) {
    const auto [x, y] = rect.origin;
    const auto [width, height] = rect.size;
    const double most = std::max(0.0, std::min(width, height) / 2);
    const double r = radius > 0 ? std::min(radius, most) : 0; // NaN rounds nothing
    if (corners == Corners::kContinuous && r > 0 && r * kContinuousReach <= most) {
        AddContinuous(context, rect, r);
        return;
    }
    constexpr double kQuarter = std::numbers::pi / 2;
    cairo_new_sub_path(context);
    cairo_arc(context, x + width - r, y + r, r, -kQuarter, 0);
    cairo_arc(context, x + width - r, y + height - r, r, 0, kQuarter);
    cairo_arc(context, x + r, y + height - r, r, kQuarter, 2 * kQuarter);
    cairo_arc(context, x + r, y + r, r, 2 * kQuarter, 3 * kQuarter);
    cairo_close_path(context);
}

void FillRounded(cairo_t *context, cg::Rect rect, double radius, Corners corners) {
    if (IsDrawable(rect)) {
        AddRounded(context, rect, radius, corners);
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
    constexpr double kOffset = 3; // of the light, points
    constexpr double kSoftness = 8;
    constexpr int kRings = 8;
    constexpr double kShade = 0.15 / kRings;
    for (int ring = 0; ring < kRings; ++ring) {
        const double by = kSoftness * (ring + 0.5) / kRings - kSoftness / 2;
        cg::Rect shade = Grown(rect, by);
        shade.origin.y += kOffset;
        SetPaint(context, Rgba{0, 0, 0, kShade});
        FillRounded(context, shade, radius + by);
    }
    constexpr double kEdge = 0.5;
    SetPaint(context, Rgba{0, 0, 0, 0.04});
    FillRounded(context, Grown(rect, kEdge), radius + kEdge);
    SetPaint(context, color);
    FillRounded(context, rect, radius);
}

void DrawGrabber(cairo_t *context, cg::Rect caret, bool atStart) {
    constexpr double kLine = 2;
    constexpr double kDot = 10;
    const double middle = caret.origin.x + caret.size.width / 2;
    const double dot = atStart ? caret.origin.y - kDot / 2 : caret.origin.y + caret.size.height + kDot / 2;
    SetPaint(context, ui::Color::systemBlueColor());
    FillRounded(context, {{middle - kLine / 2, caret.origin.y}, {kLine, caret.size.height}}, 0);
    FillRounded(context, {{middle - kDot / 2, dot - kDot / 2}, {kDot, kDot}}, kDot / 2);
}

} // namespace sim
