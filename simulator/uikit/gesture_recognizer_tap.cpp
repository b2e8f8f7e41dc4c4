#include "runtime/native_class.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/touch_delivery.hpp"

#include <map>

namespace sim {
namespace {

using ui::GestureState;
using Tap = ui::TapGestureRecognizer;

/// How far (points) a finger may stray from where it landed and still tap.
constexpr double kAllowedMovement = 45;
/// How soon (seconds) the next of several taps must land.
constexpr double kLongestPause = 0.35;

struct TapState {
    unsigned long tapsRequired = 1;
    unsigned long touchesRequired = 1;
    unsigned long tapsDone = 0;
    unsigned long fingersLanded = 0;        // in the tap being made
    std::map<objc::id, cg::Point> landings; // by touch, on the screen
    clock::Token pause = 0;

    ~TapState() {
        clock::Cancel(pause);
    }
};

TapState &StateOfTap(Tap self) {
    return StateOf<TapState>(self);
}

void TouchesBegan(Tap self, objc::SEL, ns::Set, ui::Event event) {
    TapState &state = StateOfTap(self);
    clock::Cancel(state.pause);
    RecognizerStateOf(self).waiting = false;
    if (++state.fingersLanded > state.touchesRequired) {
        SetGestureState(self, GestureState::kFailed);
    }
    const ui::Touch touch = EventStateOf(event).changed;
    state.landings[touch.pointer] = TouchStateOf(touch).location;
}

void TouchesMoved(Tap self, objc::SEL, ns::Set, ui::Event event) {
    const ui::Touch touch = EventStateOf(event).changed;
    if (Distance(StateOfTap(self).landings[touch.pointer], TouchStateOf(touch).location) > kAllowedMovement) {
        SetGestureState(self, GestureState::kFailed);
    }
}

void WaitForNextTap(Tap self) {
    TapState &state = StateOfTap(self);
    state.fingersLanded = 0;
    state.landings.clear();
    RecognizerStateOf(self).waiting = true;
    state.pause = clock::Schedule(kLongestPause, [self] {
        RecognizerStateOf(self).waiting = false;
        SetGestureState(self, GestureState::kFailed);
        SettleRecognizers();
    });
}

void TouchesEnded(Tap self, objc::SEL, ns::Set, ui::Event) {
    TapState &state = StateOfTap(self);
    if (RecognizerStateOf(self).state != GestureState::kPossible || FingersDown(self) != 0) {
        return;
    }
    if (state.fingersLanded < state.touchesRequired) {
        SetGestureState(self, GestureState::kFailed);
    } else if (++state.tapsDone < state.tapsRequired) {
        WaitForNextTap(self);
    } else {
        SetGestureState(self, GestureState::kEnded);
    }
}

void TouchesCancelled(Tap self, objc::SEL, ns::Set, ui::Event) {
    SetGestureState(self, GestureState::kFailed);
}

void Reset(Tap self, objc::SEL) {
    TapState &state = StateOfTap(self);
    clock::Cancel(state.pause);
    state.tapsDone = 0;
    state.fingersLanded = 0;
    state.landings.clear();
}

/// A single tap leaves a double tap its chance.
bool CanPrevent(Tap self, objc::SEL, ui::GestureRecognizer other) {
    return !other.isKindOfClass(objc::ClassOf<Tap>()) ||
           StateOfTap(Tap{other.pointer}).tapsRequired <= StateOfTap(self).tapsRequired;
}

unsigned long NumberOfTapsRequired(Tap self, objc::SEL) {
    return StateOfTap(self).tapsRequired;
}

void SetNumberOfTapsRequired(Tap self, objc::SEL, unsigned long taps) {
    StateOfTap(self).tapsRequired = taps;
}

unsigned long NumberOfTouchesRequired(Tap self, objc::SEL) {
    return StateOfTap(self).touchesRequired;
}

void SetNumberOfTouchesRequired(Tap self, objc::SEL, unsigned long touches) {
    StateOfTap(self).touchesRequired = touches;
}

} // namespace

void RegisterTapGestureRecognizer() {
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"touchesBegan:withEvent:", &TouchesBegan>(),
        objc::MethodNamed<"touchesMoved:withEvent:", &TouchesMoved>(),
        objc::MethodNamed<"touchesEnded:withEvent:", &TouchesEnded>(),
        objc::MethodNamed<"touchesCancelled:withEvent:", &TouchesCancelled>(),
        objc::MethodNamed<"reset", &Reset>(),
        objc::MethodNamed<"canPreventGestureRecognizer:", &CanPrevent>(),
        objc::MethodNamed<"numberOfTapsRequired", &NumberOfTapsRequired>(),
        objc::MethodNamed<"setNumberOfTapsRequired:", &SetNumberOfTapsRequired>(),
        objc::MethodNamed<"numberOfTouchesRequired", &NumberOfTouchesRequired>(),
        objc::MethodNamed<"setNumberOfTouchesRequired:", &SetNumberOfTouchesRequired>(),
    };
    RegisterClassWithState<TapState>("UITapGestureRecognizer", "UIGestureRecognizer", methods);
}

} // namespace sim
