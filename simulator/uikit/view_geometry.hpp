#pragma once
// Affine geometry of views. All lengths are points.

#include "apple/coregraphics/geometry.hpp"
#include "uikit/view_state.hpp"

namespace sim {

cg::Point Apply(cg::AffineTransform transform, cg::Point point);

/// The smallest upright rectangle around the transformed one.
cg::Rect Apply(cg::AffineTransform transform, cg::Rect rect);

/// The inverse; a transform that has none is given back as it is, as Core Graphics does.
cg::AffineTransform Inverse(cg::AffineTransform transform);

/// Whether the rectangle holds the point: its left and top edges count, its right and bottom ones do not.
bool Contains(cg::Rect rect, cg::Point point);

/// The rectangle with its edges moved outwards.
cg::Rect Grown(cg::Rect rect, double by);

/// The frame of a view with these values: its transformed bounds in its superview's coordinates.
cg::Rect FrameOf(const ViewValues &values);

/// The values changed so that their frame is the given one; centre and bounds' size change, the transform stays.
ViewValues WithFrame(ViewValues values, cg::Rect frame);

/// A point of a view's own coordinates in its superview's (a window's: the screen's), and the way back.
cg::Point ToSuperview(const ViewValues &values, cg::Point point);
cg::Point FromSuperview(const ViewValues &values, cg::Point point);

/// A point of one view's model coordinates in another's. Views in different windows meet on the screen; nil stands for
/// the window of the other view.
cg::Point ConvertPoint(cg::Point point, ui::View from, ui::View to);

/// The same for a rectangle; the result is upright and holds all four corners.
cg::Rect ConvertRect(cg::Rect rect, ui::View from, ui::View to);

/// A point of a view's model coordinates on the screen, and the way back.
cg::Point ToScreen(ui::View view, cg::Point point);
cg::Point FromScreen(ui::View view, cg::Point point);

} // namespace sim
