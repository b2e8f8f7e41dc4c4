#include "hosts/video_view.hpp"

#include "runtime/native_class.hpp"
#include "uikit/view_state.hpp"

#include <algorithm>
#include <cairo.h>
#include <numbers>

namespace sim::hosts {
namespace {

using std::numbers::pi;

struct Stop {
    double at, r, g, b, a;
};

void Fill(cairo_t *context, cairo_pattern_t *pattern, std::initializer_list<Stop> stops) {
    for (const Stop &stop : stops) {
        cairo_pattern_add_color_stop_rgba(pattern, stop.at, stop.r, stop.g, stop.b, stop.a);
    }
    cairo_set_source(context, pattern);
    cairo_paint(context);
    cairo_pattern_destroy(pattern);
}

/// A stage at night: a warm light above, the singer's shape against it, a dark floor on which the chat reads well.
void DrawVideo(ui::View view, cairo_t *context) {
    const cg::Size size = view.bounds().size;
    const double w = size.width;
    const double h = size.height;
    Fill(context, cairo_pattern_create_linear(0, 0, 0, h),
         {{0, 0.16, 0.10, 0.26, 1}, {0.45, 0.30, 0.16, 0.34, 1}, {1, 0.05, 0.05, 0.10, 1}});
    Fill(context, cairo_pattern_create_radial(w * 0.5, h * 0.30, 10, w * 0.5, h * 0.30, w * 0.8),
         {{0, 0.98, 0.72, 0.48, 0.75}, {0.5, 0.85, 0.40, 0.45, 0.30}, {1, 0, 0, 0, 0}});
    const double figure = std::min(w, h * 0.7); // as wide, also on a screen that lies
    const double left = (w - figure) / 2;
    const auto x = [&](double part) { return left + part * figure; };
    cairo_set_source_rgb(context, 0.11, 0.08, 0.15);
    cairo_arc(context, x(0.5), h * 0.40, figure * 0.13, 0, 2 * pi); // head
    cairo_fill(context);
    cairo_rectangle(context, x(0.45), h * 0.44, figure * 0.10, h * 0.06); // neck
    cairo_fill(context);
    cairo_move_to(context, x(0.08), h); // shoulders
    cairo_curve_to(context, x(0.10), h * 0.50, x(0.34), h * 0.50, x(0.5), h * 0.485);
    cairo_curve_to(context, x(0.66), h * 0.50, x(0.90), h * 0.50, x(0.92), h);
    cairo_fill(context);
    Fill(context, cairo_pattern_create_linear(0, h * 0.55, 0, h), {{0, 0, 0, 0, 0}, {1, 0, 0, 0, 0.65}});
}

void DrawPoster(ui::View view, cairo_t *context) {
    const cg::Rect frame = view.frame();
    // Where a poster lies decides its colour, so that the lobby looks like different rooms.
    const double warm = frame.origin.x > frame.size.width / 2 ? 0.25 : 0.55;
    const double cool = frame.origin.y > frame.size.height ? 0.55 : 0.30;
    Fill(context, cairo_pattern_create_linear(0, 0, 0, frame.size.height),
         {{0, warm, 0.30, cool, 1}, {1, 0.08, 0.08, 0.14, 1}});
}

} // namespace

void RegisterVideoViews() {
    Class(VideoView::kClassName, "UIView");
    RegisterDrawing(VideoView::kClassName, &DrawVideo);
    Class(PosterView::kClassName, "UIView");
    RegisterDrawing(PosterView::kClassName, &DrawPoster);
}

} // namespace sim::hosts
