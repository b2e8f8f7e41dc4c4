#pragma once
// UIView: how subviews follow the size of the view that they lie in.

#include "apple/uikit/view.hpp"

/// Which of a view's lengths give way; by default none does and the view keeps its place and size.
enum UIViewAutoresizing : unsigned long {
    UIViewAutoresizingFlexibleLeftMargin = 1 << 0,
    UIViewAutoresizingFlexibleWidth = 1 << 1,
    UIViewAutoresizingFlexibleRightMargin = 1 << 2,
    UIViewAutoresizingFlexibleTopMargin = 1 << 3,
    UIViewAutoresizingFlexibleHeight = 1 << 4,
    UIViewAutoresizingFlexibleBottomMargin = 1 << 5,
};

namespace sim {

/// Gives every subview the frame that its mask asks for, after the view's size was another one.
void AutoresizeSubviews(ui::View view, cg::Size before);

/// A frame in a superview whose size changes, by the mask: the flexible lengths of each direction share the change by
/// their present lengths, evenly when all of them are 0.
cg::Rect Autoresized(cg::Rect frame, cg::Size before, cg::Size after, unsigned long mask);

} // namespace sim
