#include "uikit/view_renderer.hpp"

#include "render/backdrop.hpp"
#include "render/shadow.hpp"
#include "uikit/drawing.hpp"
#include "uikit/effects.hpp"
#include "uikit/view_geometry.hpp"
#include "uikit/view_state.hpp"

#include <algorithm>
#include <cmath>
#include <map>

namespace sim {
namespace {

constexpr Rgba kBlack{0, 0, 0, 1};

const LayerState &LayerOf(const ViewState &state) {
    static const LayerState plain;
    return state.layer ? LayerStateOf(state.layer) : plain;
}

Rgba ColorOr(ui::Color color, Rgba fallback) {
    return color ? RgbaOf(color) : fallback;
}

/// A context must never see a matrix that it cannot invert: it would draw nothing from then on.
bool CanBeShown(const ViewValues &values) {
    const cg::AffineTransform &t = values.transform;
    const double determinant = t.a * t.d - t.b * t.c;
    const double all = determinant + t.tx + t.ty + values.center.x + values.center.y + values.bounds.origin.x +
                       values.bounds.origin.y + values.bounds.size.width + values.bounds.size.height;
    return std::isfinite(all) && std::abs(determinant) > 1e-9;
}

/// How many pixels a point is long, on average over both directions.
double PixelsPerPoint(cairo_t *context) {
    cairo_matrix_t matrix;
    cairo_get_matrix(context, &matrix);
    return std::sqrt(std::abs(matrix.xx * matrix.yy - matrix.xy * matrix.yx));
}

/// The pixels that the current path touches, within the clip. The path stays.
PixelRect PathPixels(cairo_t *context) {
    cairo_save(context);
    cairo_clip_preserve(context);
    cairo_identity_matrix(context);
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    cairo_clip_extents(context, &left, &top, &right, &bottom);
    cairo_restore(context);
    const double x = std::floor(left);
    const double y = std::floor(top);
    return {static_cast<int>(x), static_cast<int>(y), static_cast<int>(std::ceil(right) - x),
            static_cast<int>(std::ceil(bottom) - y)};
}

void DrawShadow(cairo_t *context, cairo_pattern_t *picture, const LayerState &layer) {
    cairo_surface_t *surface = nullptr;
    if (cairo_pattern_get_surface(picture, &surface) != CAIRO_STATUS_SUCCESS) {
        return;
    }
    const ShadowMask mask = MakeShadowMask(surface, layer.shadowRadius * PixelsPerPoint(context));
    if (!mask.image) {
        return;
    }
    double x = layer.shadowOffset.width;
    double y = layer.shadowOffset.height;
    cairo_user_to_device_distance(context, &x, &y);
    Rgba color = ColorOr(layer.shadowColor, kBlack);
    color.a *= std::clamp(static_cast<double>(layer.shadowOpacity), 0.0, 1.0);
    cairo_save(context);
    cairo_identity_matrix(context);
    SetPaint(context, color);
    cairo_mask_surface(context, mask.image.get(), mask.x + x, mask.y + y);
    cairo_restore(context);
}

void DrawBorder(cairo_t *context, cg::Rect bounds, const LayerState &layer) {
    const double width = layer.borderWidth;
    if (!(width > 0)) {
        return;
    }
    AddRounded(context, bounds, layer.cornerRadius);
    const cg::Rect inner{{bounds.origin.x + width, bounds.origin.y + width},
                         {bounds.size.width - 2 * width, bounds.size.height - 2 * width}};
    if (inner.size.width > 0 && inner.size.height > 0) {
        AddRounded(context, inner, layer.cornerRadius - width);
    }
    SetPaint(context, ColorOr(layer.borderColor, kBlack));
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_fill(context);
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_WINDING);
}

} // namespace

ViewRenderer::ViewRenderer(cairo_t *context, Backdrops *kept)
    : context_(context), kept_(kept), targets_{cairo_get_group_target(context)} {}

void ViewRenderer::DrawInSuperview(ui::View view) {
    const ViewValues values = PresentedValues(view);
    if (!CanBeShown(values)) {
        return;
    }
    cairo_save(context_);
    cairo_translate(context_, values.center.x, values.center.y);
    const cg::AffineTransform &t = values.transform;
    const cairo_matrix_t matrix{t.a, t.b, t.c, t.d, t.tx, t.ty};
    cairo_transform(context_, &matrix);
    cairo_translate(context_, -values.bounds.origin.x - values.bounds.size.width / 2,
                    -values.bounds.origin.y - values.bounds.size.height / 2);
    DrawView(view, ViewStateOf(view), values);
    cairo_restore(context_);
}

void ViewRenderer::DrawInRect(ui::View view, cg::Rect rect) {
    const ViewValues values = PresentedValues(view);
    const cg::Rect &bounds = values.bounds;
    const double scaleX = rect.size.width / bounds.size.width;
    const double scaleY = rect.size.height / bounds.size.height;
    const bool fits = std::isfinite(scaleX) && std::isfinite(scaleY) && scaleX != 0 && scaleY != 0;
    if (!fits || !std::isfinite(rect.origin.x + rect.origin.y) || !CanBeShown(values)) {
        return;
    }
    cairo_save(context_);
    cairo_translate(context_, rect.origin.x, rect.origin.y);
    cairo_scale(context_, scaleX, scaleY);
    cairo_translate(context_, -bounds.origin.x, -bounds.origin.y);
    DrawView(view, ViewStateOf(view), values);
    cairo_restore(context_);
}

/// Draws the view in a user space that is its own bounds' space.
void ViewRenderer::DrawView(ui::View view, const ViewState &state, const ViewValues &values) {
    if (state.hidden || !(values.alpha > 0)) {
        return;
    }
    const LayerState &layer = LayerOf(state);
    const bool translucent = values.alpha < 1; // the view and all in it as one picture
    if (translucent) {
        PushGroup();
    }
    // Clipping to the bounds cuts the shadow off too.
    if (layer.shadowOpacity > 0 && layer.shadowRadius >= 0 && !state.clipsToBounds) {
        DrawWithShadow(view, state, values, layer);
    } else {
        DrawBody(view, state, values, layer);
    }
    if (translucent) {
        targets_.pop_back();
        cairo_pop_group_to_source(context_);
        cairo_paint_with_alpha(context_, values.alpha);
    }
}

void ViewRenderer::DrawWithShadow(ui::View view, const ViewState &state, const ViewValues &values,
                                  const LayerState &layer) {
    PushGroup();
    DrawBody(view, state, values, layer);
    targets_.pop_back();
    const Pattern picture(cairo_pop_group(context_));
    DrawShadow(context_, picture.get(), layer);
    cairo_set_source(context_, picture.get());
    cairo_paint(context_);
}

void ViewRenderer::DrawBody(ui::View view, const ViewState &state, const ViewValues &values, const LayerState &layer) {
    cairo_save(context_);
    if (state.clipsToBounds) {
        AddRounded(context_, values.bounds, layer.cornerRadius);
        cairo_clip(context_);
    }
    if (const Rgba background = RgbaOf(values.backgroundColor); background.a > 0) {
        AddRounded(context_, values.bounds, layer.cornerRadius);
        SetPaint(context_, background);
        cairo_fill(context_);
    }
    if (const std::optional<BlurLook> look = BlurLookOf(view)) {
        DrawBackdrop(view, *look, values.bounds, layer.cornerRadius);
    }
    if (const DrawContent draw = DrawingOf(view); draw != nullptr && IsSeen(values.bounds)) {
        cairo_save(context_);
        cairo_translate(context_, values.bounds.origin.x, values.bounds.origin.y);
        draw(view, context_);
        cairo_restore(context_);
        cairo_new_path(context_);
    }
    // An app's own class may draw itself; what it draws with is not modelled, that it is called is.
    if (const objc::SEL drawRect = objc::Selector<"drawRect:">(); view.respondsToSelector(drawRect)) {
        objc::Send<"drawRect:", void>(view, values.bounds);
    }
    DrawSubviews(state);
    DrawBorder(context_, values.bounds, layer);
    cairo_restore(context_);
}

/// Whether any part of what a view with these bounds may draw itself is within the clip.
bool ViewRenderer::IsSeen(cg::Rect bounds) const {
    const cg::Rect drawn = Grown(bounds, kOverhang);
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    cairo_clip_extents(context_, &left, &top, &right, &bottom);
    return left < drawn.origin.x + drawn.size.width && right > drawn.origin.x &&
           top < drawn.origin.y + drawn.size.height && bottom > drawn.origin.y;
}

void ViewRenderer::DrawBackdrop(ui::View view, const BlurLook &look, cg::Rect bounds, double radius) {
    AddRounded(context_, bounds, radius);
    const PixelRect pixels = PathPixels(context_);
    Pattern made;
    Pattern &behind = kept_ != nullptr ? (*kept_)[view.pointer] : made;
    if (!behind && !pixels.IsEmpty()) {
        behind = MakeBackdrop(targets_, pixels, look.deviation * PixelsPerPoint(context_), look.saturation);
    }
    if (behind) {
        cairo_save(context_);
        cairo_clip_preserve(context_);
        cairo_identity_matrix(context_);
        cairo_set_source(context_, behind.get());
        cairo_paint(context_);
        cairo_restore(context_);
    }
    SetPaint(context_, look.tint);
    cairo_fill(context_);
}

void ViewRenderer::DrawSubviews(const ViewState &state) {
    std::multimap<double, ui::View> order; // equal positions keep the order of insertion
    for (const objc::Ref<ui::View> &view : state.subviews) {
        const double position = LayerOf(ViewStateOf(view)).zPosition;
        order.emplace(std::isnan(position) ? 0 : position, view.get());
    }
    for (const auto &[position, view] : order) {
        DrawInSuperview(view);
    }
}

void ViewRenderer::PushGroup() {
    cairo_push_group(context_);
    targets_.push_back(cairo_get_group_target(context_));
}

} // namespace sim
