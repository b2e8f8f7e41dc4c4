#include "uikit/view_geometry.hpp"

#include "uikit/view.hpp"

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

cg::Point CenterOf(cg::Rect rect) {
    return {rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2};
}

/// The smallest upright rectangle around the images of the four corners.
template <class Map> cg::Rect MapCorners(cg::Rect rect, Map map) {
    const double right = rect.origin.x + rect.size.width;
    const double bottom = rect.origin.y + rect.size.height;
    const cg::Point corners[] = {map(rect.origin), map(cg::Point{right, rect.origin.y}),
                                 map(cg::Point{rect.origin.x, bottom}), map(cg::Point{right, bottom})};
    cg::Point low = corners[0];
    cg::Point high = corners[0];
    for (const cg::Point corner : corners) {
        low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
        high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
    }
    return {low, {high.x - low.x, high.y - low.y}};
}

ui::View RootOf(ui::View view) {
    while (const ui::View parent = ViewStateOf(view).superview) {
        view = parent;
    }
    return view;
}

/// From a view's coordinates to those that the root of its tree lies in (for a window, the screen's), and back.
cg::Point UpFrom(ui::View view, cg::Point point) {
    for (; view; view = ViewStateOf(view).superview) {
        point = ToSuperview(ViewStateOf(view).model, point);
    }
    return point;
}

cg::Point DownTo(ui::View view, cg::Point point) {
    if (const ui::View parent = ViewStateOf(view).superview) {
        point = DownTo(parent, point);
    }
    return FromSuperview(ViewStateOf(view).model, point);
}

} // namespace

cg::Point Apply(cg::AffineTransform transform, cg::Point point) {
    return {transform.a * point.x + transform.c * point.y + transform.tx,
            transform.b * point.x + transform.d * point.y + transform.ty};
}

cg::Rect Apply(cg::AffineTransform transform, cg::Rect rect) {
    return MapCorners(rect, [&](cg::Point corner) { return Apply(transform, corner); });
}

cg::AffineTransform Inverse(cg::AffineTransform t) {
    const double determinant = t.a * t.d - t.b * t.c;
    if (determinant == 0 || !std::isfinite(1 / determinant)) {
        return t;
    }
    const double scale = 1 / determinant;
    return {t.d * scale,
            -t.b * scale,
            -t.c * scale,
            t.a * scale,
            (t.c * t.ty - t.d * t.tx) * scale,
            (t.b * t.tx - t.a * t.ty) * scale};
}

bool Contains(cg::Rect rect, cg::Point point) {
    return point.x >= rect.origin.x && point.x < rect.origin.x + rect.size.width && point.y >= rect.origin.y &&
           point.y < rect.origin.y + rect.size.height;
}

cg::Rect Grown(cg::Rect rect, double by) {
    return {{rect.origin.x - by, rect.origin.y - by}, {rect.size.width + 2 * by, rect.size.height + 2 * by}};
}

cg::Rect FrameOf(const ViewValues &values) {
    const cg::Size size = values.bounds.size;
    if (values.transform == cg::AffineTransform::Identity()) { // exact: no rounding on the way through the corners
        return {{values.center.x - size.width / 2, values.center.y - size.height / 2}, size};
    }
    const cg::Rect around = Apply(values.transform, cg::Rect{{-size.width / 2, -size.height / 2}, size});
    return {{values.center.x + around.origin.x, values.center.y + around.origin.y}, around.size};
}

ViewValues WithFrame(ViewValues values, cg::Rect frame) {
    const cg::AffineTransform t = values.transform;
    // The centre goes where the transform's own shift puts it in the middle of the frame.
    values.center = {CenterOf(frame).x - t.tx, CenterOf(frame).y - t.ty};
    values.bounds.size = t == cg::AffineTransform::Identity() ? frame.size : Apply(Inverse(t), frame).size;
    return values;
}

cg::Point ToSuperview(const ViewValues &values, cg::Point point) {
    const cg::Point middle = CenterOf(values.bounds);
    const cg::Point moved = Apply(values.transform, cg::Point{point.x - middle.x, point.y - middle.y});
    return {moved.x + values.center.x, moved.y + values.center.y};
}

cg::Point FromSuperview(const ViewValues &values, cg::Point point) {
    const cg::Point middle = CenterOf(values.bounds);
    const cg::Point moved =
        Apply(Inverse(values.transform), cg::Point{point.x - values.center.x, point.y - values.center.y});
    return {moved.x + middle.x, moved.y + middle.y};
}

cg::Point ConvertPoint(cg::Point point, ui::View from, ui::View to) {
    if (from == to) {
        return point;
    }
    if (!from) {
        from = RootOf(to);
    }
    if (!to) {
        to = RootOf(from);
    }
    return from == to ? point : DownTo(to, UpFrom(from, point));
}

cg::Rect ConvertRect(cg::Rect rect, ui::View from, ui::View to) {
    return MapCorners(rect, [&](cg::Point corner) { return ConvertPoint(corner, from, to); });
}

cg::Point ToScreen(ui::View view, cg::Point point) {
    return UpFrom(view, point);
}

cg::Point FromScreen(ui::View view, cg::Point point) {
    return DownTo(view, point);
}

} // namespace sim
