#pragma once
// Where a finger takes hold of what scrolls.

#include "apple/uikit/view.hpp"

#include <optional>

namespace sim::driver {

inline constexpr double kEdge = 6;       // points from a scroll view's edges where a finger lands and turns back
inline constexpr double kTouchSlop = 12; // points that a finger goes before the content follows

/// What can be seen of a scroll view, on the screen.
cg::Rect VisiblePart(ui::View scrollView);

/// A place near the start of the way where a finger touches the scroll view beside its controls; none when all of that
/// half is controls.
std::optional<cg::Point> PlaceToGrab(ui::View scrollView, cg::Rect part, bool upwards);

} // namespace sim::driver
