#include "uikit/view_renderer.hpp"

#include "render/backdrop.hpp"
#include "render/shadow.hpp"
#include "uikit/drawing.hpp"
#include "uikit/effects.hpp"
#include "uikit/presentation.hpp"
#include "uikit/view.hpp"
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

/// Clipping to the bounds cuts the shadow off too.
bool HasShadow(const ViewState &state) {
    const LayerState &layer = LayerOf(state);
    return layer.shadowOpacity > 0 && layer.shadowRadius >= 0 && !state.clipsToBounds;
}

// What no screen shows (device units). Cairo counts in 24 bits.
constexpr double kFarthest = 1e6;

cg::Rect Union(cg::Rect a, cg::Rect b) {
    const double left = std::min(a.origin.x, b.origin.x);
    const double top = std::min(a.origin.y, b.origin.y);
    return {{left, top},
            {std::max(a.origin.x + a.size.width, b.origin.x + b.size.width) - left,
             std::max(a.origin.y + a.size.height, b.origin.y + b.size.height) - top}};
}

/// All that a view and what is in it may paint, in the space of its bounds.
cg::Rect ExtentOf(const ViewState &state, const ViewValues &values) {
    cg::Rect extent = Grown(values.bounds, kOverhang);
    if (state.clipsToBounds) {
        return extent;
    }
    for (const objc::Ref<ui::View> &subview : state.subviews) {
        const ViewState &other = ViewStateOf(subview);
        const ViewValues shown = PresentedValues(subview);
        if (other.hidden || !(shown.alpha > 0) || !CanBeShown(shown)) {
            continue;
        }
        cg::Rect inside = ExtentOf(other, shown);
        inside.origin.x -= shown.bounds.origin.x + shown.bounds.size.width / 2;
        inside.origin.y -= shown.bounds.origin.y + shown.bounds.size.height / 2;
        inside = Apply(shown.transform, inside);
        inside.origin.x += shown.center.x;
        inside.origin.y += shown.center.y;
        extent = Union(extent, inside);
    }
    if (HasShadow(state)) {
        const LayerState &layer = LayerOf(state);
        const double reach =
            3 * layer.shadowRadius + std::abs(layer.shadowOffset.width) + std::abs(layer.shadowOffset.height);
        extent = Grown(extent, reach < kFarthest ? reach : kFarthest); // NaN reaches anywhere
    }
    return extent;
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
    AddRounded(context, bounds, layer.cornerRadius, layer.corners);
    const cg::Rect inner{{bounds.origin.x + width, bounds.origin.y + width},
                         {bounds.size.width - 2 * width, bounds.size.height - 2 * width}};
    if (inner.size.width > 0 && inner.size.height > 0) {
        AddRounded(context, inner, layer.cornerRadius - width, layer.corners);
    }
    SetPaint(context, ColorOr(layer.borderColor, kBlack));
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_fill(context);
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_WINDING);
}

/// The frame of a view without its transform.
cg::Rect PlainFrame(const ViewValues &values) {
    const cg::Size size = values.bounds.size;
    return {{values.center.x - size.width / 2, values.center.y - size.height / 2}, size};
}

SheetPart PartOf(const ViewState &state) {
    return state.controller ? SheetPartOf(objc::As<ui::ViewController>(state.controller)) : SheetPart{};
}

} // namespace

cg::AffineTransform SheetTransform(const ViewState &state, const ViewValues &values) {
    const SheetPart part = PartOf(state);
    const double top = PlainFrame(values).origin.y;
    return {part.scale, 0, 0, part.scale, values.center.x * (1 - part.scale), top * (1 - part.scale) + part.moved};
}

ViewRenderer::ViewRenderer(cairo_t *context, Backdrops *kept)
    : context_(context), kept_(kept), targets_{cairo_get_group_target(context)} {}

void ViewRenderer::DrawOnlyBelow(ui::View view) {
    part_ = Part::kBelow;
    middle_ = view;
}

void ViewRenderer::DrawOnlyAbove(ui::View view) {
    part_ = Part::kAbove;
    middle_ = view;
}

/// Whether nothing of the view and of what is in it belongs to the part that is drawn.
bool ViewRenderer::IsLeftOut(ui::View view) {
    if (view == middle_) {
        middleReached_ = true;
        return true;
    }
    return part_ == Part::kBelow ? middleReached_ : !middleReached_ && !IsDescendant(middle_, view);
}

/// Whether what a view draws behind its subviews or, asked after them, in front of them belongs to it.
bool ViewRenderer::DrawsOwn() const {
    return part_ == Part::kAll || middleReached_ == (part_ == Part::kAbove);
}

void ViewRenderer::DrawWithoutBackdrop(ui::View view) {
    leavesBackdropOut_ = true;
    const ViewState &state = ViewStateOf(view);
    const ViewValues values = PresentedValues(view);
    if (HasShadow(state)) {
        DrawWithShadow(view, state, values, LayerOf(state));
    } else {
        DrawBody(view, state, values, LayerOf(state));
    }
}

void ViewRenderer::DrawInSuperview(ui::View view) {
    if (part_ != Part::kAll && IsLeftOut(view)) {
        return;
    }
    const ViewValues values = PresentedValues(view);
    if (!CanBeShown(values)) {
        return;
    }
    const ViewState &state = ViewStateOf(view);
    cairo_save(context_);
    PlaceForSheet(state, values);
    cairo_translate(context_, values.center.x, values.center.y);
    const cg::AffineTransform &t = values.transform;
    const cairo_matrix_t matrix{t.a, t.b, t.c, t.d, t.tx, t.ty};
    cairo_transform(context_, &matrix);
    cairo_translate(context_, -values.bounds.origin.x - values.bounds.size.width / 2,
                    -values.bounds.origin.y - values.bounds.size.height / 2);
    DrawView(view, state, values);
    cairo_restore(context_);
}

/// A sheet loses its upper corners; what it covers is drawn smaller, with round corners.
void ViewRenderer::PlaceForSheet(const ViewState &state, const ViewValues &values) {
    const SheetPart part = PartOf(state);
    cg::Rect frame = PlainFrame(values);
    if (part.isSheet) {
        frame.size.height += 2 * kSheetRadius; // the lower corners are out of sight
        AddRounded(context_, frame, kSheetRadius, Corners::kContinuous);
        cairo_clip(context_);
    } else if (part.pushedBack > 0) {
        const cg::AffineTransform t = SheetTransform(state, values);
        const cairo_matrix_t matrix{t.a, t.b, t.c, t.d, t.tx, t.ty};
        cairo_transform(context_, &matrix);
        AddRounded(context_, frame, part.pushedBack * kSheetRadius / part.scale, Corners::kContinuous);
        cairo_clip(context_);
    }
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
    const bool shadowed = HasShadow(state);
    if (!translucent && !shadowed) {
        DrawBody(view, state, values, layer);
        return;
    }
    cairo_save(context_);
    ClipToExtent(state, values);
    if (translucent) {
        PushGroup();
    }
    if (shadowed) {
        DrawWithShadow(view, state, values, layer);
    } else {
        DrawBody(view, state, values, layer);
    }
    if (translucent) {
        targets_.pop_back();
        cairo_pop_group_to_source(context_);
        cairo_paint_with_alpha(context_, values.alpha);
    }
    cairo_restore(context_);
}

/// Groups are as large as the clip; most views need but a small part of the screen.
void ViewRenderer::ClipToExtent(const ViewState &state, const ViewValues &values) {
    const cg::Rect extent = ExtentOf(state, values);
    const double right = extent.origin.x + extent.size.width;
    const double bottom = extent.origin.y + extent.size.height;
    double left = kFarthest;
    double top = kFarthest;
    double farRight = -kFarthest;
    double farBottom = -kFarthest;
    for (cg::Point corner : {extent.origin, cg::Point{right, extent.origin.y}, cg::Point{extent.origin.x, bottom},
                             cg::Point{right, bottom}}) {
        cairo_user_to_device(context_, &corner.x, &corner.y);
        left = std::min(left, corner.x);
        top = std::min(top, corner.y);
        farRight = std::max(farRight, corner.x);
        farBottom = std::max(farBottom, corner.y);
    }
    // Whole pixels: an edge between two would be soft, and slow.
    left = std::floor(std::max(left, -kFarthest));
    top = std::floor(std::max(top, -kFarthest));
    cairo_matrix_t matrix;
    cairo_get_matrix(context_, &matrix);
    cairo_identity_matrix(context_);
    cairo_rectangle(context_, left, top, std::ceil(std::min(farRight, kFarthest)) - left,
                    std::ceil(std::min(farBottom, kFarthest)) - top);
    cairo_clip(context_);
    cairo_set_matrix(context_, &matrix);
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
        AddRounded(context_, values.bounds, layer.cornerRadius, layer.corners);
        cairo_clip(context_);
    }
    if (DrawsOwn()) {
        DrawBehindSubviews(view, values, layer);
    }
    DrawSubviews(state);
    if (DrawsOwn()) {
        DrawBorder(context_, values.bounds, layer);
    }
    cairo_restore(context_);
}

void ViewRenderer::DrawBehindSubviews(ui::View view, const ViewValues &values, const LayerState &layer) {
    if (const Rgba background = RgbaOf(values.backgroundColor); background.a > 0) {
        AddRounded(context_, values.bounds, layer.cornerRadius, layer.corners);
        SetPaint(context_, background);
        cairo_fill(context_);
    }
    if (const std::optional<BlurLook> look = BlurLookOf(view); look && !leavesBackdropOut_) {
        DrawBackdrop(view, *look, values.bounds, layer);
    }
    if (const DrawContent draw = DrawingOf(view).draw; draw != nullptr && IsSeen(values.bounds)) {
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

void ViewRenderer::DrawBackdrop(ui::View view, const BlurLook &look, cg::Rect bounds, const LayerState &layer) {
    AddRounded(context_, bounds, layer.cornerRadius, layer.corners);
    const PixelRect pixels = PathPixels(context_);
    const Rgba &tint = look.tint;
    const BackdropLook wanted{
        look.deviation * PixelsPerPoint(context_), look.saturation, {tint.r, tint.g, tint.b, tint.a}};
    Pattern made;
    Pattern &behind = kept_ != nullptr ? (*kept_)[view.pointer] : made;
    if (!behind && !pixels.IsEmpty()) {
        behind = MakeBackdrop(targets_, pixels, wanted);
    }
    if (behind) {
        cairo_save(context_);
        cairo_identity_matrix(context_);
        cairo_set_source(context_, behind.get());
        cairo_fill(context_);
        cairo_restore(context_);
    }
    cairo_new_path(context_);
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
