#pragma once
// UIControl: targets, states and the tracking of a touch.

#include "apple/uikit/button.hpp"
#include "uikit/event.hpp"
#include "uikit/target_action.hpp"

#include <map>

namespace sim {

/// UIControlEvents beside those of the platform's view.
inline constexpr unsigned long kTouchDown = 1 << 0;
inline constexpr unsigned long kTouchDownRepeat = 1 << 1;
inline constexpr unsigned long kTouchDragInside = 1 << 2;
inline constexpr unsigned long kTouchDragOutside = 1 << 3;
inline constexpr unsigned long kTouchDragEnter = 1 << 4;
inline constexpr unsigned long kTouchDragExit = 1 << 5;
inline constexpr unsigned long kTouchUpOutside = 1 << 7;
inline constexpr unsigned long kTouchCancel = 1 << 8;
inline constexpr unsigned long kEditingDidBegin = 1 << 16;
inline constexpr unsigned long kEditingChanged = 1 << 17;

/// UIControlState.
inline constexpr unsigned long kStateHighlighted = 1 << 0;
inline constexpr unsigned long kStateDisabled = 1 << 1;
inline constexpr unsigned long kStateSelected = 1 << 2;

struct ControlTarget {
    TargetAction action;
    unsigned long events = 0;
};

struct ControlState {
    std::vector<ControlTarget> targets;
    bool enabled = true;
    bool highlighted = false;
    bool selected = false;
    bool tracking = false;
    bool touchInside = false;
    long horizontalAlignment = 0;
    long verticalAlignment = 0;
};

ControlState &ControlStateOf(ui::Control control);

/// What is set for a control's state, else what is set for the normal state, else nil.
template <class T> T ForState(const std::map<unsigned long, objc::Ref<T>> &values, unsigned long state) {
    auto found = values.find(state);
    if (found == values.end()) {
        found = values.find(ui::kStateNormal);
    }
    return found == values.end() ? T{} : found->second.get();
}

/// Sends the control's actions for each of the events; the event may be nil.
void SendControlEvents(ui::Control control, unsigned long events, ui::Event event);

/// Whether a control whose action is a single tap lets a recogniser begin: not a single-finger single-tap recogniser of
/// a view around it. For gestureRecognizerShouldBegin: of such controls.
bool TapControlAllows(ui::Control control, ui::GestureRecognizer recognizer);

/// Whether a control that follows a finger sideways lets a recogniser begin: not a pan of a view around it that goes
/// sideways while the control has hold of the finger. For gestureRecognizerShouldBegin: of such controls.
bool PanControlAllows(ui::Control control, ui::GestureRecognizer recognizer);

} // namespace sim
