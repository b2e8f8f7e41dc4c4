#pragma once
// UIScrollView: content larger than the view, moved by a finger.

#include "apple/uikit/edge_insets.hpp"
#include "apple/uikit/scroll_view.hpp"
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

ScrollState &ScrollStateOf(ui::View scrollView);

/// Scrolls just so far that the rectangle (content coordinates, points) can be seen, if it fits.
void ScrollToRect(ui::View scrollView, cg::Rect rect, bool animated);

} // namespace sim
