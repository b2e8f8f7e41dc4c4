#include "window/moved_picture.hpp"

#include "render/backdrop.hpp"
#include "uikit/application.hpp"
#include "uikit/effects.hpp"
#include "uikit/home_indicator.hpp"
#include "uikit/screen.hpp"
#include "uikit/screenshot.hpp"
#include "uikit/status_bar.hpp"
#include "uikit/view_state.hpp"

#include <cmath>

namespace sim::window {
namespace {

Surface SurfaceLike(cairo_surface_t *image, cairo_format_t format) {
    return Surface(cairo_image_surface_create(format, cairo_image_surface_get_width(image),
                                              cairo_image_surface_get_height(image)));
}

void ClipTo(cairo_t *context, const cairo_region_t *region) {
    for (int i = 0; i < cairo_region_num_rectangles(region); ++i) {
        cairo_rectangle_int_t box;
        cairo_region_get_rectangle(region, i, &box);
        cairo_rectangle(context, box.x, box.y, box.width, box.height);
    }
    cairo_clip(context);
}

/// Puts the source's pixels in place of what is there.
void Copy(cairo_t *context, cairo_surface_t *source, int x, int y) {
    cairo_set_source_surface(context, source, x, y);
    cairo_set_operator(context, CAIRO_OPERATOR_SOURCE);
    cairo_paint(context);
    cairo_set_operator(context, CAIRO_OPERATOR_OVER);
}

} // namespace

MovedPicture::MovedPicture(const Moved &moved, cairo_surface_t *image, double scale)
    : view_(moved.view), scale_(scale), alpha_(PresentedValues(moved.view).alpha), x_(moved.matrix.x0),
      y_(moved.matrix.y0), box_(moved.box) {
    DrawBelow(image);
    if (!moved.above.empty()) {
        DrawAbove(image);
    }
    DrawContent(moved);
    if (const std::optional<BlurLook> look = BlurLookOf(view_)) {
        DrawBlurred(moved, *look);
    }
}

void MovedPicture::DrawBelow(cairo_surface_t *image) {
    below_ = SurfaceLike(image, CAIRO_FORMAT_RGB24);
    const Context context(cairo_create(below_.get()));
    cairo_set_source_rgb(context.get(), 0, 0, 0);
    cairo_paint(context.get());
    cairo_scale(context.get(), scale_, scale_);
    ViewRenderer renderer(context.get());
    renderer.DrawOnlyBelow(view_);
    DrawWindows(renderer);
}

void MovedPicture::DrawAbove(cairo_surface_t *image) {
    above_ = SurfaceLike(image, CAIRO_FORMAT_ARGB32);
    const Context context(cairo_create(above_.get()));
    cairo_scale(context.get(), scale_, scale_);
    ViewRenderer renderer(context.get());
    renderer.DrawOnlyAbove(view_);
    DrawWindows(renderer);
}

void MovedPicture::DrawContent(const Moved &moved) {
    content_.reset(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, box_.width, box_.height));
    const Context context(cairo_create(content_.get()));
    cairo_matrix_t matrix = moved.matrix;
    matrix.x0 -= box_.x;
    matrix.y0 -= box_.y;
    cairo_set_matrix(context.get(), &matrix);
    ViewRenderer(context.get()).DrawWithoutBackdrop(view_);
}

void MovedPicture::DrawBlurred(const Moved &moved, const BlurLook &look) {
    const ViewState &state = ViewStateOf(view_);
    const cairo_matrix_t &matrix = moved.matrix;
    const double length = std::sqrt(std::abs(matrix.xx * matrix.yy - matrix.xy * matrix.yx));
    const PixelRect all{0, 0, cairo_image_surface_get_width(below_.get()),
                        cairo_image_surface_get_height(below_.get())};
    cairo_surface_t *const layers[] = {below_.get()};
    const Pattern pattern = MakeBackdrop(
        layers, all, {look.deviation * length, look.saturation, {look.tint.r, look.tint.g, look.tint.b, look.tint.a}});
    blurred_ = SurfaceLike(below_.get(), CAIRO_FORMAT_ARGB32);
    joined_ = SurfaceLike(content_.get(), CAIRO_FORMAT_ARGB32);
    if (pattern) {
        const Context context(cairo_create(blurred_.get()));
        cairo_set_source(context.get(), pattern.get());
        cairo_paint(context.get());
    }
    // The blurred part fills the view's bounds, rounded.
    const Surface shape = SurfaceLike(content_.get(), CAIRO_FORMAT_A8);
    {
        const LayerState &layer = state.layer ? LayerStateOf(state.layer) : LayerState{};
        const Context context(cairo_create(shape.get()));
        cairo_translate(context.get(), -box_.x, -box_.y);
        cairo_transform(context.get(), &matrix);
        AddRounded(context.get(), PresentedValues(view_).bounds, layer.cornerRadius, layer.corners);
        cairo_fill(context.get());
    }
    cairo_surface_flush(shape.get());
    const unsigned char *const data = cairo_image_surface_get_data(shape.get());
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(shape.get());
    for (int y = 0; y < box_.height; ++y) {
        for (int x = 0; x < box_.width; ++x) {
            if (const unsigned char cover = data[y * stride + x]; cover != 0xFF) {
                edge_.push_back({x, y, cover});
            }
        }
    }
}

/// Leaves of the blurred part what lies within its shape.
void MovedPicture::CutEdge() {
    cairo_surface_flush(joined_.get());
    unsigned char *const data = cairo_image_surface_get_data(joined_.get());
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(joined_.get());
    for (const EdgePixel &pixel : edge_) {
        unsigned char *const channels = data + pixel.y * stride + std::ptrdiff_t{4} * pixel.x;
        for (int channel = 0; channel < 4; ++channel) {
            channels[channel] = static_cast<unsigned char>((channels[channel] * pixel.cover + 127) / 255);
        }
    }
    cairo_surface_mark_dirty(joined_.get());
}

/// The view's picture before its alpha, at a place in the screen's picture.
cairo_surface_t *MovedPicture::OverBackdrop(int x, int y) {
    const Context context(cairo_create(joined_.get()));
    Copy(context.get(), blurred_.get(), -x, -y);
    CutEdge();
    cairo_set_source_surface(context.get(), content_.get(), 0, 0);
    cairo_paint(context.get());
    return joined_.get();
}

void MovedPicture::Show(cairo_surface_t *image, const Moved &moved) {
    const int x = box_.x + static_cast<int>(std::lround(moved.matrix.x0 - x_));
    const int y = box_.y + static_cast<int>(std::lround(moved.matrix.y0 - y_));
    const Context context(cairo_create(image));
    ClipTo(context.get(), moved.region.get());
    Copy(context.get(), below_.get(), 0, 0);
    cairo_set_source_surface(context.get(), blurred_ ? OverBackdrop(x, y) : content_.get(), x, y);
    cairo_paint_with_alpha(context.get(), alpha_);

    const Region above(cairo_region_create());
    for (const cairo_rectangle_int_t &box : moved.above) {
        cairo_region_union_rectangle(above.get(), &box);
    }
    cairo_region_intersect(above.get(), moved.region.get());
    if (cairo_region_is_empty(above.get()) == 0) {
        cairo_save(context.get());
        ClipTo(context.get(), above.get());
        cairo_set_source_surface(context.get(), above_.get(), 0, 0);
        cairo_paint(context.get());
        cairo_restore(context.get());
    }
    cairo_rectangle_int_t touched;
    cairo_region_get_extents(moved.region.get(), &touched);
    const ui::EdgeInsets safe = ScreenSafeArea();
    if (touched.y < safe.top * scale_ || touched.y + touched.height > (ScreenSize().height - safe.bottom) * scale_) {
        cairo_scale(context.get(), scale_, scale_);
        DrawStatusBar(context.get());
        DrawHomeIndicator(context.get());
    }
}

} // namespace sim::window
