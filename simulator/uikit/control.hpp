#pragma once
// UIControl: targets, states and the tracking of a touch.

#include "apple/uikit/button.hpp"
#include "uikit/event.hpp"
#include "uikit/target_action.hpp"

#include <map>

namespace sim {

struct ControlTarget {
    TargetAction action;
    UIControlEvents events = 0;
};

struct ControlState {
    std::vector<ControlTarget> targets;
    bool enabled = true;
    bool highlighted = false;
    bool selected = false;
    bool tracking = false;
    bool touchInside = false;
    UIControlContentHorizontalAlignment horizontalAlignment = UIControlContentHorizontalAlignmentCenter;
    UIControlContentVerticalAlignment verticalAlignment = UIControlContentVerticalAlignmentCenter;
};

ControlState &ControlStateOf(ui::Control control);

/// What is set for a control's state, else what is set for the normal state, else nil.
template <class T> T ForState(const std::map<UIControlState, objc::Ref<T>> &values, UIControlState state) {
    auto found = values.find(state);
    if (found == values.end()) {
        found = values.find(UIControlStateNormal);
    }
    return found == values.end() ? T{} : found->second.get();
}

/// Sends the control's actions for each of the events; the event may be nil.
void SendControlEvents(ui::Control control, UIControlEvents events, ui::Event event);

/// Whether a control whose action is a single tap lets a recogniser begin: not a single-finger single-tap recogniser of
/// a view around it. For gestureRecognizerShouldBegin: of such controls.
bool TapControlAllows(ui::Control control, ui::GestureRecognizer recognizer);

/// Whether a control that follows a finger sideways lets a recogniser begin: not a pan of a view around it that goes
/// sideways while the control has hold of the finger. For gestureRecognizerShouldBegin: of such controls.
bool PanControlAllows(ui::Control control, ui::GestureRecognizer recognizer);

} // namespace sim
