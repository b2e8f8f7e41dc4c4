// UILongPressGestureRecognizer.

#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/touch_delivery.hpp"

namespace sim {
namespace {

using LongPress = ui::LongPressGestureRecognizer;

struct LongPressState {
    double minimumDuration = 0.5; // seconds
    double allowableMovement = 10;
    unsigned long touchesRequired = 1;
    cg::Point landing; // the middle of the fingers when the last one landed
    clock::Token timer = 0;

    ~LongPressState() {
        clock::Cancel(timer);
    }
};

bool IsPossible(LongPress self) {
    return RecognizerStateOf(self).state == UIGestureRecognizerStatePossible;
}

void TouchesBegan(LongPress self, ns::Set, ui::Event) {
    auto &state = StateOf<LongPressState>(self);
    const std::size_t fingers = RecognizerStateOf(self).touches.size();
    if (!IsPossible(self) || fingers < state.touchesRequired) {
        return;
    }
    if (fingers > state.touchesRequired) {
        SetGestureState(self, UIGestureRecognizerStateFailed);
        return;
    }
    state.landing = RecognizerLocation(self);
    state.timer = clock::Schedule(state.minimumDuration, [self] {
        if (IsPossible(self)) {
            SetGestureState(self, UIGestureRecognizerStateBegan);
            SettleRecognizers();
        }
    });
}

void TouchesMoved(LongPress self, ns::Set, ui::Event) {
    const auto &state = StateOf<LongPressState>(self);
    if (!IsPossible(self)) {
        SetGestureState(self, UIGestureRecognizerStateChanged);
    } else if (Distance(state.landing, RecognizerLocation(self)) > state.allowableMovement) {
        SetGestureState(self, UIGestureRecognizerStateFailed);
    }
}

void TouchesEnded(LongPress self, ns::Set, ui::Event) {
    if (IsPossible(self)) {
        SetGestureState(self, UIGestureRecognizerStateFailed);
    } else if (FingersDown(self) < StateOf<LongPressState>(self).touchesRequired) {
        SetGestureState(self, UIGestureRecognizerStateEnded);
    }
}

} // namespace

void DefineLongPressGestureRecognizer() {
    auto press = Class<LongPressState>("UILongPressGestureRecognizer", "UIGestureRecognizer");
    press.Property<"minimumPressDuration", &LongPressState::minimumDuration>();
    press.Property<"allowableMovement", &LongPressState::allowableMovement>();
    press.Property<"numberOfTouchesRequired", &LongPressState::touchesRequired>();
    press.Method<"touchesBegan:withEvent:", &TouchesBegan>();
    press.Method<"touchesMoved:withEvent:", &TouchesMoved>();
    press.Method<"touchesEnded:withEvent:", &TouchesEnded>();
    press.Method<"touchesCancelled:withEvent:">(
        [](LongPress self, ns::Set, ui::Event) { SetGestureState(self, UIGestureRecognizerStateCancelled); });
    press.Method<"reset">([](const LongPressState &state) { clock::Cancel(state.timer); });
}

} // namespace sim
