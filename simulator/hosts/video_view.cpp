#include "hosts/video_view.hpp"

#include "render/surface.hpp"
#include "runtime/native_class.hpp"
#include "uikit/view_state.hpp"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <numbers>
#include <vector>

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
void DrawStage(cairo_t *context, cg::Size size) {
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

/// A stage drawn before. Its light takes longer to draw than the rest of a screen.
struct StillPicture {
    cg::Size size;
    double scale = 0; // pixels a point
    Surface pixels;
};

/// The stage in at least this many pixels a point and not in many more; empty when memory is short.
cairo_surface_t *StageOf(cg::Size size, double scale) {
    constexpr double kFinest = 1.5;  // times the scale asked for: the app's screen may be drawn smaller for a moment
    constexpr std::size_t kKept = 3; // sizes and scales
    static std::vector<StillPicture> kept;
    const auto fits = [&](const StillPicture &still) {
        return still.size == size && still.scale >= scale && still.scale <= kFinest * scale;
    };
    if (const auto found = std::ranges::find_if(kept, fits); found != kept.end()) {
        return found->pixels.get();
    }
    Surface pixels(cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(std::ceil(size.width * scale)),
                                              static_cast<int>(std::ceil(size.height * scale))));
    if (cairo_surface_status(pixels.get()) != CAIRO_STATUS_SUCCESS) {
        return nullptr;
    }
    cairo_surface_set_device_scale(pixels.get(), scale, scale);
    DrawStage(Context(cairo_create(pixels.get())).get(), size);
    if (kept.size() == kKept) {
        kept.erase(kept.begin());
    }
    kept.push_back({size, scale, std::move(pixels)});
    return kept.back().pixels.get();
}

void DrawVideo(ui::View view, cairo_t *context) {
    const cg::Size size = view.bounds().size;
    double x = 1;
    double y = 0;
    cairo_user_to_device_distance(context, &x, &y);
    const double scale = std::hypot(x, y);
    cairo_surface_t *stage = size.width > 0 && size.height > 0 && scale > 0 ? StageOf(size, scale) : nullptr;
    if (stage != nullptr) {
        cairo_set_source_surface(context, stage, 0, 0);
        cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_BILINEAR);
        cairo_rectangle(context, 0, 0, size.width, size.height);
        cairo_fill(context);
    }
}

void DrawPoster(ui::View view, cairo_t *context) {
    const cg::Rect frame = view.frame();
    // Where a poster lies decides its colour, so that the lobby looks like different rooms.
    const double warm = frame.origin.x > frame.size.width / 2 ? 0.25 : 0.55;
    const double cool = frame.origin.y > frame.size.height ? 0.55 : 0.30;
    Fill(context, cairo_pattern_create_linear(0, 0, 0, frame.size.height),
         {{0, warm, 0.30, cool, 1}, {1, 0.08, 0.08, 0.14, 1}});
}

/// Nothing but its size changes a stage.
std::uint64_t VideoDrawnFrom(ui::View) {
    return 0;
}

} // namespace

void RegisterVideoViews() {
    Class(VideoView::kClassName, "UIView");
    RegisterDrawing(VideoView::kClassName, &DrawVideo, &VideoDrawnFrom);
    Class(PosterView::kClassName, "UIView");
    RegisterDrawing(PosterView::kClassName, &DrawPoster);
}

} // namespace sim::hosts
