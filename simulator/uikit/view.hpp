#pragma once
// UIView, for the other classes of the subset.

#include "apple/uikit/window.hpp"
#include "uikit/view_state.hpp"

namespace sim {

/// The window at the top of the view's tree; nil when there is none. A window is its own.
ui::Window WindowOf(ui::View view);

/// Whether the view is the ancestor or stands below it.
bool IsDescendant(ui::View view, ui::View ancestor);

/// Puts a view at an index of another's subviews, moving it from wherever it was, with all that UIKit tells the views
/// on the way. An index beyond the end is the end.
void InsertSubview(ui::View parent, ui::View child, std::size_t index);

/// Asks for a layout at the end of this turn (view may be nil).
void SetNeedsLayout(ui::View view);

/// Lays out the view and all below it that asked for it, now.
void LayoutIfNeeded(ui::View view);

} // namespace sim
