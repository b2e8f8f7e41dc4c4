// UITapGestureRecognizer.

#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/touch_delivery.hpp"

#include <map>

namespace sim {
namespace {

using Tap = ui::TapGestureRecognizer;

/// How far (points) a finger may move from where it landed and still tap.
constexpr double kAllowedMovement = 45;
/// The longest pause (seconds) between two of several taps.
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

void TouchesBegan(Tap self, ns::Set, ui::Event event) {
    auto &state = StateOf<TapState>(self);
    clock::Cancel(state.pause);
    RecognizerStateOf(self).waiting = false;
    if (++state.fingersLanded > state.touchesRequired) {
        SetGestureState(self, UIGestureRecognizerStateFailed);
    }
    const ui::Touch touch = EventStateOf(event).changed;
    state.landings[touch.pointer] = TouchStateOf(touch).location;
}

void TouchesMoved(Tap self, ns::Set, ui::Event event) {
    const ui::Touch touch = EventStateOf(event).changed;
    if (Distance(StateOf<TapState>(self).landings[touch.pointer], TouchStateOf(touch).location) > kAllowedMovement) {
        SetGestureState(self, UIGestureRecognizerStateFailed);
    }
}

void WaitForNextTap(Tap self) {
    auto &state = StateOf<TapState>(self);
    state.fingersLanded = 0;
    state.landings.clear();
    RecognizerStateOf(self).waiting = true;
    state.pause = clock::Schedule(kLongestPause, [self] {
        RecognizerStateOf(self).waiting = false;
        SetGestureState(self, UIGestureRecognizerStateFailed);
        SettleRecognizers();
    });
}

void TouchesEnded(Tap self, ns::Set, ui::Event) {
    auto &state = StateOf<TapState>(self);
    if (RecognizerStateOf(self).state != UIGestureRecognizerStatePossible || FingersDown(self) != 0) {
        return;
    }
    if (state.fingersLanded < state.touchesRequired) {
        SetGestureState(self, UIGestureRecognizerStateFailed);
    } else if (++state.tapsDone < state.tapsRequired) {
        WaitForNextTap(self);
    } else {
        SetGestureState(self, UIGestureRecognizerStateEnded);
    }
}

} // namespace

void DefineTapGestureRecognizer() {
    auto tap = Class<TapState>("UITapGestureRecognizer", "UIGestureRecognizer");
    tap.Property<"numberOfTapsRequired", &TapState::tapsRequired>();
    tap.Property<"numberOfTouchesRequired", &TapState::touchesRequired>();
    // A single tap must not prevent a double tap.
    tap.Method<"canPreventGestureRecognizer:">([](const TapState &state, ui::GestureRecognizer other) {
        return !other.isKindOfClass(objc::ClassOf<Tap>()) ||
               StateOf<TapState>(other).tapsRequired <= state.tapsRequired;
    });
    tap.Method<"touchesBegan:withEvent:", &TouchesBegan>();
    tap.Method<"touchesMoved:withEvent:", &TouchesMoved>();
    tap.Method<"touchesEnded:withEvent:", &TouchesEnded>();
    tap.Method<"touchesCancelled:withEvent:">(
        [](Tap self, ns::Set, ui::Event) { SetGestureState(self, UIGestureRecognizerStateFailed); });
    tap.Method<"reset">([](TapState &state) {
        clock::Cancel(state.pause);
        state.tapsDone = 0;
        state.fingersLanded = 0;
        state.landings.clear();
    });
}

} // namespace sim
