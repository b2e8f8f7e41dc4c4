#pragma once
// UIControl and UIButton.

#include "apple/uikit/edge_insets.hpp"
#include "apple/uikit/label.hpp"

using UIControlEvents = unsigned long;
enum : UIControlEvents {
    UIControlEventTouchDown = 1 << 0,
    UIControlEventTouchDownRepeat = 1 << 1,
    UIControlEventTouchDragInside = 1 << 2,
    UIControlEventTouchDragOutside = 1 << 3,
    UIControlEventTouchDragEnter = 1 << 4,
    UIControlEventTouchDragExit = 1 << 5,
    UIControlEventTouchUpInside = 1 << 6,
    UIControlEventTouchUpOutside = 1 << 7,
    UIControlEventTouchCancel = 1 << 8,
    UIControlEventValueChanged = 1 << 12,
    UIControlEventEditingDidBegin = 1 << 16,
    UIControlEventEditingChanged = 1 << 17,
    UIControlEventEditingDidEnd = 1 << 18,
};

using UIControlState = unsigned long;
enum : UIControlState {
    UIControlStateNormal = 0,
    UIControlStateHighlighted = 1 << 0,
    UIControlStateDisabled = 1 << 1,
    UIControlStateSelected = 1 << 2,
};

enum UIControlContentHorizontalAlignment : long {
    UIControlContentHorizontalAlignmentCenter = 0,
    UIControlContentHorizontalAlignmentLeft = 1,
    UIControlContentHorizontalAlignmentRight = 2,
    UIControlContentHorizontalAlignmentFill = 3,
    UIControlContentHorizontalAlignmentLeading = 4,
    UIControlContentHorizontalAlignmentTrailing = 5,
};

enum UIControlContentVerticalAlignment : long {
    UIControlContentVerticalAlignmentCenter = 0,
    UIControlContentVerticalAlignmentTop = 1,
    UIControlContentVerticalAlignmentBottom = 2,
    UIControlContentVerticalAlignmentFill = 3,
};

enum UIButtonType : long { UIButtonTypeCustom = 0, UIButtonTypeSystem = 1 };

namespace ui {

struct Control : View {
    using View::View;
    static constexpr const char *kClassName = "UIControl";

    void addTarget(ns::Object target, objc::SEL action, UIControlEvents events) const {
        objc::Send<"addTarget:action:forControlEvents:", void>(*this, target, action, events);
    }
    void setContentHorizontalAlignment(UIControlContentHorizontalAlignment alignment) const {
        objc::Send<"setContentHorizontalAlignment:", void>(*this, alignment);
    }
    void setContentVerticalAlignment(UIControlContentVerticalAlignment alignment) const {
        objc::Send<"setContentVerticalAlignment:", void>(*this, alignment);
    }
};

struct Button : Control {
    using Control::Control;
    static constexpr const char *kClassName = "UIButton";

    static Button buttonWithType(UIButtonType type) {
        return objc::SendClass<Button, "buttonWithType:", Button>(type);
    }
    Label titleLabel() const {
        return objc::Send<"titleLabel", Label>(*this);
    }
    ns::String titleForState(UIControlState state) const {
        return objc::Send<"titleForState:", ns::String>(*this, state);
    }
    void setTitleEdgeInsets(EdgeInsets insets) const {
        objc::Send<"setTitleEdgeInsets:", void>(*this, insets);
    }
    void setTitle(ns::String title, UIControlState state) const {
        objc::Send<"setTitle:forState:", void>(*this, title, state);
    }
    void setTitleColor(Color color, UIControlState state) const {
        objc::Send<"setTitleColor:forState:", void>(*this, color, state);
    }
};

} // namespace ui
