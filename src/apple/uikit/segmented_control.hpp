#pragma once
// UISegmentedControl.

#include "apple/foundation/collections.hpp"
#include "apple/uikit/button.hpp"

/// The index of the selected segment when nothing is selected.
inline constexpr long UISegmentedControlNoSegment = -1;

namespace ui {

struct SegmentedControl : Control {
    using Control::Control;
    static constexpr const char *kClassName = "UISegmentedControl";

    /// One segment for each title.
    SegmentedControl initWithItems(ns::Array titles) const {
        return objc::Send<"initWithItems:", SegmentedControl>(*this, titles);
    }
    long selectedSegmentIndex() const {
        return objc::Send<"selectedSegmentIndex", long>(*this);
    }
    void setSelectedSegmentIndex(long index) const {
        objc::Send<"setSelectedSegmentIndex:", void>(*this, index);
    }
    /// Attributes as in NSAttributedString.
    void setTitleTextAttributes(ns::Dictionary attributes, UIControlState state) const {
        objc::Send<"setTitleTextAttributes:forState:", void>(*this, attributes, state);
    }
};

} // namespace ui
