#include "uikit/control.hpp"

#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <cmath>
#include <vector>

namespace sim {
namespace {

using ui::Control;

/// How far (points) outside its bounds a tracked touch still counts as inside the control.
constexpr double kTrackingSlop = 70;

bool IsInside(Control control, ui::Touch touch) {
    return Contains(Grown(ViewStateOf(control).model.bounds, kTrackingSlop),
                    FromScreen(control, TouchStateOf(touch).location));
}

void SetHighlightedIfChanged(Control control, bool highlighted) {
    if (ControlStateOf(control).highlighted != highlighted) {
        objc::Send<"setHighlighted:", void>(control, highlighted);
    }
}

void AddTarget(ControlState &state, ns::Object target, objc::SEL action, UIControlEvents events) {
    if (action == nullptr) {
        return;
    }
    for (ControlTarget &entry : state.targets) {
        if (entry.action.Is(target, action)) {
            entry.events |= events;
            return;
        }
    }
    state.targets.push_back({{WeakObject(target), action}, events});
}

void RemoveTarget(ControlState &state, ns::Object target, objc::SEL action, UIControlEvents events) {
    for (ControlTarget &entry : state.targets) {
        if (entry.action.Fits(target, action)) {
            entry.events &= ~events;
        }
    }
    std::erase_if(state.targets, [](const ControlTarget &entry) { return entry.events == 0; });
}

void DefineTargets(Class<ControlState> &control) {
    control.Method<"addTarget:action:forControlEvents:", &AddTarget>();
    control.Method<"removeTarget:action:forControlEvents:", &RemoveTarget>();
    control.Method<"allControlEvents">([](const ControlState &state) {
        UIControlEvents events = 0;
        for (const ControlTarget &entry : state.targets) {
            events |= entry.events;
        }
        return events;
    });
    control.Method<"sendAction:to:forEvent:">([](Control self, objc::SEL action, ns::Object target, ui::Event event) {
        SendAction(action, target, self, event);
    });
    control.Method<"sendActionsForControlEvents:">(
        [](Control self, UIControlEvents events) { SendControlEvents(self, events, nullptr); });
}

void DefineStates(Class<ControlState> &control) {
    control.Property<"isEnabled", &ControlState::enabled>();
    control.Property<"isHighlighted", &ControlState::highlighted>();
    control.Property<"isSelected", &ControlState::selected>();
    control.Method<"state">([](const ControlState &state) {
        return (state.highlighted ? UIControlStateHighlighted : 0) | (state.enabled ? 0 : UIControlStateDisabled) |
               (state.selected ? UIControlStateSelected : 0);
    });
    control.ReadOnly<"isTracking", &ControlState::tracking>();
    control.ReadOnly<"isTouchInside", &ControlState::touchInside>();
    control.Property<"contentHorizontalAlignment", &ControlState::horizontalAlignment, &SetNeedsLayout>();
    control.Property<"contentVerticalAlignment", &ControlState::verticalAlignment, &SetNeedsLayout>();
}

// Tracking. Subclasses follow the touch through four methods, or override the touch methods themselves.

void StopTracking(Control self) {
    ControlState &state = ControlStateOf(self);
    state.tracking = false;
    state.touchInside = false;
    SetHighlightedIfChanged(self, false);
}

void TouchesBegan(Control self, ns::Set, ui::Event event) {
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
    SendControlEvents(self, UIControlEventTouchDown | (repeated ? UIControlEventTouchDownRepeat : 0), event);
}

void TouchesMoved(Control self, ns::Set, ui::Event event) {
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
    UIControlEvents events = is ? UIControlEventTouchDragInside : UIControlEventTouchDragOutside;
    if (was != is) {
        events |= is ? UIControlEventTouchDragEnter : UIControlEventTouchDragExit;
    }
    SendControlEvents(self, events, event);
}

void TouchesEnded(Control self, ns::Set, ui::Event event) {
    ControlState &state = ControlStateOf(self);
    const ui::Touch touch = EventStateOf(event).changed;
    if (!state.tracking) {
        return;
    }
    const bool inside = IsInside(self, touch);
    state.touchInside = inside;
    objc::Send<"endTrackingWithTouch:withEvent:", void>(self, touch, event);
    StopTracking(self);
    SendControlEvents(self, inside ? UIControlEventTouchUpInside : UIControlEventTouchUpOutside, event);
}

void TouchesCancelled(Control self, ns::Set, ui::Event event) {
    if (!ControlStateOf(self).tracking) {
        return;
    }
    objc::Send<"cancelTrackingWithEvent:", void>(self, event);
    StopTracking(self);
    SendControlEvents(self, UIControlEventTouchCancel, event);
}

void DefineTracking(Class<ControlState> &control) {
    control.Method<"beginTrackingWithTouch:withEvent:">([](Control, ui::Touch, ui::Event) { return true; });
    control.Method<"continueTrackingWithTouch:withEvent:">([](Control, ui::Touch, ui::Event) { return true; });
    control.Method<"endTrackingWithTouch:withEvent:">([](Control, ui::Touch, ui::Event) {});
    control.Method<"cancelTrackingWithEvent:">([](Control, ui::Event) {});
    control.Method<"touchesBegan:withEvent:", &TouchesBegan>();
    control.Method<"touchesMoved:withEvent:", &TouchesMoved>();
    control.Method<"touchesEnded:withEvent:", &TouchesEnded>();
    control.Method<"touchesCancelled:withEvent:", &TouchesCancelled>();
}

} // namespace

void DefineControl() {
    auto control = Class<ControlState>("UIControl", "UIView");
    DefineTargets(control);
    DefineStates(control);
    DefineTracking(control);
}

ControlState &ControlStateOf(Control control) {
    return StateOf<ControlState>(control);
}

void SendControlEvents(Control control, UIControlEvents events, ui::Event event) {
    const objc::Ref<Control> keep = control;
    const std::vector<ControlTarget> targets = ControlStateOf(control).targets;
    for (const ControlTarget &entry : targets) {
        if ((entry.events & events) != 0 && !entry.action.IsOrphaned()) {
            const objc::Ref<ns::Object> target = entry.action.target.Lock();
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

} // namespace sim
