#pragma once
// UIScrollView: content larger than the view, moved by a finger.

#include "apple/uikit/edge_insets.hpp"
#include "uikit/view.hpp"

namespace sim {

struct ScrollState {
    cg::Size contentSize;
    ui::EdgeInsets contentInset;
    objc::Ref<ui::PanGestureRecognizer> pan;
    cg::Point dragStart; // the offset at which the drag under way began
    bool scrollEnabled = true;
    bool bounces = true;
    bool alwaysBounceVertical = false;
    bool alwaysBounceHorizontal = false;
    bool showsVerticalIndicator = true;
    bool showsHorizontalIndicator = true;
    bool dragging = false;
};

/// After UIView's and the pan recogniser's registration.
void RegisterScrollView();

ScrollState &ScrollStateOf(ui::View scrollView);

/// Sets the content's size (points) and brings an offset that lies beyond it back into its range.
void SetContentSize(ui::View scrollView, cg::Size size);

/// Scrolls just so far that the rectangle (content coordinates, points) can be seen, if it fits.
void ScrollToRect(ui::View scrollView, cg::Rect rect, bool animated);

} // namespace sim
