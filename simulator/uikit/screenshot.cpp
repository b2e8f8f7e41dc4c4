#include "uikit/screenshot.hpp"

#include "render/png.hpp"
#include "render/surface.hpp"
#include "runtime/autorelease.hpp"
#include "uikit/application.hpp"
#include "uikit/home_indicator.hpp"
#include "uikit/status_bar.hpp"

#include <cmath>
#include <ranges>

namespace sim {

void DrawScreen(cairo_t *context, Backdrops *kept) {
    const AutoreleasePool pool;
    LayoutWindows();
    const cg::Size size = ScreenSize();
    cairo_rectangle(context, 0, 0, size.width, size.height);
    cairo_set_source_rgb(context, 0, 0, 0);
    cairo_fill(context);
    ViewRenderer renderer(context, kept);
    DrawWindows(renderer);
    DrawStatusBar(context);
    DrawHomeIndicator(context);
}

void DrawWindows(ViewRenderer &renderer) {
    const std::vector<ui::Window> windows = WindowsFrontToBack();
    for (const ui::Window window : std::ranges::reverse_view(windows)) {
        renderer.DrawInSuperview(window);
    }
}

bool WriteScreenshot(const std::string &path, double scale) {
    const cg::Size size = ScreenSize();
    const Surface picture(cairo_image_surface_create(CAIRO_FORMAT_RGB24,
                                                     static_cast<int>(std::lround(size.width * scale)),
                                                     static_cast<int>(std::lround(size.height * scale))));
    const Context context(cairo_create(picture.get()));
    cairo_scale(context.get(), scale, scale);
    DrawScreen(context.get());
    return WritePng(picture.get(), path);
}

} // namespace sim
