#include "uikit/control.hpp"

#include "runtime/native_class.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <cmath>
#include <vector>

namespace sim {
namespace {

using ui::Control;

/// How far (points) outside its bounds a touch still counts as inside a control that tracks it.
constexpr double kTrackingSlop = 70;

bool IsInside(Control control, ui::Touch touch) {
    const cg::Rect bounds = ViewStateOf(control).model.bounds;
    const cg::Rect wide{{bounds.origin.x - kTrackingSlop, bounds.origin.y - kTrackingSlop},
                        {bounds.size.width + 2 * kTrackingSlop, bounds.size.height + 2 * kTrackingSlop}};
    return Contains(wide, FromScreen(control, TouchStateOf(touch).location));
}

void SetHighlightedIfChanged(Control control, bool highlighted) {
    if (ControlStateOf(control).highlighted != highlighted) {
        objc::Send<"setHighlighted:", void>(control, highlighted);
    }
}

// Targets.

void AddTarget(Control self, objc::SEL, ns::Object target, objc::SEL action, unsigned long events) {
    if (action == nullptr) {
        return;
    }
    std::vector<ControlTarget> &targets = ControlStateOf(self).targets;
    for (ControlTarget &entry : targets) {
        if (entry.action.Is(target, action) && entry.hasTarget == static_cast<bool>(target)) {
            entry.events |= events;
            return;
        }
    }
    targets.push_back({{WeakObject(target), action}, static_cast<bool>(target), events});
}

/// Nil stands for every target, a null selector for every action.
void RemoveTarget(Control self, objc::SEL, ns::Object target, objc::SEL action, unsigned long events) {
    std::vector<ControlTarget> &targets = ControlStateOf(self).targets;
    for (ControlTarget &entry : targets) {
        const ns::Object own = entry.action.target.Lock();
        if ((!target || own == target) && (action == nullptr || sel_isEqual(entry.action.action, action) != 0)) {
            entry.events &= ~events;
        }
    }
    std::erase_if(targets, [](const ControlTarget &entry) { return entry.events == 0; });
}

unsigned long AllControlEvents(Control self, objc::SEL) {
    unsigned long events = 0;
    for (const ControlTarget &entry : ControlStateOf(self).targets) {
        events |= entry.events;
    }
    return events;
}

void SendAction(Control self, objc::SEL, objc::SEL action, ns::Object target, ui::Event event) {
    objc::Send<"sendAction:to:from:forEvent:", bool>(ui::Application::sharedApplication(), action, target,
                                                     ns::Object{self}, event);
}

void SendActionsForControlEvents(Control self, objc::SEL, unsigned long events) {
    SendControlEvents(self, events, nullptr);
}

// States.

bool IsEnabled(Control self, objc::SEL) {
    return ControlStateOf(self).enabled;
}

void SetEnabled(Control self, objc::SEL, bool enabled) {
    ControlStateOf(self).enabled = enabled;
}

bool IsHighlighted(Control self, objc::SEL) {
    return ControlStateOf(self).highlighted;
}

void SetHighlighted(Control self, objc::SEL, bool highlighted) {
    ControlStateOf(self).highlighted = highlighted;
}

bool IsSelected(Control self, objc::SEL) {
    return ControlStateOf(self).selected;
}

void SetSelected(Control self, objc::SEL, bool selected) {
    ControlStateOf(self).selected = selected;
}

unsigned long State(Control self, objc::SEL) {
    const ControlState &state = ControlStateOf(self);
    return (state.highlighted ? kStateHighlighted : 0) | (state.enabled ? 0 : kStateDisabled) |
           (state.selected ? kStateSelected : 0);
}

bool IsTracking(Control self, objc::SEL) {
    return ControlStateOf(self).tracking;
}

bool IsTouchInside(Control self, objc::SEL) {
    return ControlStateOf(self).touchInside;
}

long ContentHorizontalAlignment(Control self, objc::SEL) {
    return ControlStateOf(self).horizontalAlignment;
}

void SetContentHorizontalAlignment(Control self, objc::SEL, long alignment) {
    ControlStateOf(self).horizontalAlignment = alignment;
    SetNeedsLayout(self);
}

long ContentVerticalAlignment(Control self, objc::SEL) {
    return ControlStateOf(self).verticalAlignment;
}

void SetContentVerticalAlignment(Control self, objc::SEL, long alignment) {
    ControlStateOf(self).verticalAlignment = alignment;
    SetNeedsLayout(self);
}

// Tracking. Subclasses follow the touch through the four methods here, or override the touch methods themselves.

bool BeginTracking(Control, objc::SEL, ui::Touch, ui::Event) {
    return true;
}

bool ContinueTracking(Control, objc::SEL, ui::Touch, ui::Event) {
    return true;
}

void EndTracking(Control, objc::SEL, ui::Touch, ui::Event) {}

void CancelTracking(Control, objc::SEL, ui::Event) {}

void StopTracking(Control self) {
    ControlState &state = ControlStateOf(self);
    state.tracking = false;
    state.touchInside = false;
    SetHighlightedIfChanged(self, false);
}

void TouchesBegan(Control self, objc::SEL, ns::Set, ui::Event event) {
    ControlState &state = ControlStateOf(self);
    const ui::Touch touch = EventStateOf(event).changed;
    if (!state.enabled || state.tracking) {
        return;
    }
    state.tracking = objc::Send<"beginTrackingWithTouch:withEvent:", bool>(self, touch, event);
    if (!state.tracking) {
        return;
    }
    state.touchInside = true;
    SetHighlightedIfChanged(self, true);
    const bool repeated = TouchStateOf(touch).tapCount > 1;
    SendControlEvents(self, kTouchDown | (repeated ? kTouchDownRepeat : 0), event);
}

void TouchesMoved(Control self, objc::SEL, ns::Set, ui::Event event) {
    ControlState &state = ControlStateOf(self);
    const ui::Touch touch = EventStateOf(event).changed;
    if (!state.tracking) {
        return;
    }
    const bool was = state.touchInside;
    const bool is = IsInside(self, touch);
    state.touchInside = is;
    SetHighlightedIfChanged(self, is);
    if (!objc::Send<"continueTrackingWithTouch:withEvent:", bool>(self, touch, event)) {
        StopTracking(self);
        return;
    }
    unsigned long events = is ? kTouchDragInside : kTouchDragOutside;
    if (was != is) {
        events |= is ? kTouchDragEnter : kTouchDragExit;
    }
    SendControlEvents(self, events, event);
}

void TouchesEnded(Control self, objc::SEL, ns::Set, ui::Event event) {
    ControlState &state = ControlStateOf(self);
    const ui::Touch touch = EventStateOf(event).changed;
    if (!state.tracking) {
        return;
    }
    const bool inside = IsInside(self, touch);
    state.touchInside = inside;
    objc::Send<"endTrackingWithTouch:withEvent:", void>(self, touch, event);
    StopTracking(self);
    SendControlEvents(self, inside ? ui::kTouchUpInside : kTouchUpOutside, event);
}

void TouchesCancelled(Control self, objc::SEL, ns::Set, ui::Event event) {
    if (!ControlStateOf(self).tracking) {
        return;
    }
    objc::Send<"cancelTrackingWithEvent:", void>(self, event);
    StopTracking(self);
    SendControlEvents(self, kTouchCancel, event);
}

} // namespace

ControlState &ControlStateOf(Control control) {
    return StateOf<ControlState>(control);
}

void SendControlEvents(Control control, unsigned long events, ui::Event event) {
    const objc::Ref<Control> keep = control;
    const std::vector<ControlTarget> targets = ControlStateOf(control).targets;
    for (const ControlTarget &entry : targets) {
        const objc::Ref<ns::Object> target = entry.action.target.Lock();
        // A target that is gone is not a missing one: its action goes nowhere.
        if ((entry.events & events) != 0 && (target || !entry.hasTarget)) {
            objc::Send<"sendAction:to:forEvent:", void>(control, entry.action.action, target.get(), event);
        }
    }
}

bool TapControlAllows(Control control, ui::GestureRecognizer recognizer) {
    if (!recognizer.isKindOfClass(objc::ClassOf<ui::TapGestureRecognizer>()) || recognizer.view() == control) {
        return true;
    }
    return objc::Send<"numberOfTapsRequired", unsigned long>(As<ui::TapGestureRecognizer>(recognizer)) != 1 ||
           objc::Send<"numberOfTouchesRequired", unsigned long>(As<ui::TapGestureRecognizer>(recognizer)) != 1;
}

bool PanControlAllows(Control control, ui::GestureRecognizer recognizer) {
    const bool isPan = recognizer.isKindOfClass(objc::ClassOf<ui::PanGestureRecognizer>());
    if (!isPan || recognizer.view() == control || !ControlStateOf(control).tracking) {
        return true;
    }
    const cg::Point way = objc::As<ui::PanGestureRecognizer>(recognizer).translationInView(control);
    return std::abs(way.x) < std::abs(way.y);
}

void RegisterControl() {
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"addTarget:action:forControlEvents:", &AddTarget>(),
        objc::MethodNamed<"removeTarget:action:forControlEvents:", &RemoveTarget>(),
        objc::MethodNamed<"allControlEvents", &AllControlEvents>(),
        objc::MethodNamed<"sendAction:to:forEvent:", &SendAction>(),
        objc::MethodNamed<"sendActionsForControlEvents:", &SendActionsForControlEvents>(),
        objc::MethodNamed<"isEnabled", &IsEnabled>(),
        objc::MethodNamed<"setEnabled:", &SetEnabled>(),
        objc::MethodNamed<"isHighlighted", &IsHighlighted>(),
        objc::MethodNamed<"setHighlighted:", &SetHighlighted>(),
        objc::MethodNamed<"isSelected", &IsSelected>(),
        objc::MethodNamed<"setSelected:", &SetSelected>(),
        objc::MethodNamed<"state", &State>(),
        objc::MethodNamed<"isTracking", &IsTracking>(),
        objc::MethodNamed<"isTouchInside", &IsTouchInside>(),
        objc::MethodNamed<"contentHorizontalAlignment", &ContentHorizontalAlignment>(),
        objc::MethodNamed<"setContentHorizontalAlignment:", &SetContentHorizontalAlignment>(),
        objc::MethodNamed<"contentVerticalAlignment", &ContentVerticalAlignment>(),
        objc::MethodNamed<"setContentVerticalAlignment:", &SetContentVerticalAlignment>(),
        objc::MethodNamed<"beginTrackingWithTouch:withEvent:", &BeginTracking>(),
        objc::MethodNamed<"continueTrackingWithTouch:withEvent:", &ContinueTracking>(),
        objc::MethodNamed<"endTrackingWithTouch:withEvent:", &EndTracking>(),
        objc::MethodNamed<"cancelTrackingWithEvent:", &CancelTracking>(),
        objc::MethodNamed<"touchesBegan:withEvent:", &TouchesBegan>(),
        objc::MethodNamed<"touchesMoved:withEvent:", &TouchesMoved>(),
        objc::MethodNamed<"touchesEnded:withEvent:", &TouchesEnded>(),
        objc::MethodNamed<"touchesCancelled:withEvent:", &TouchesCancelled>(),
    };
    RegisterClassWithState<ControlState>("UIControl", "UIView", methods);
}

} // namespace sim
