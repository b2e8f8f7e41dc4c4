#include "runtime/native_class.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/touch_delivery.hpp"

namespace sim {
namespace {

using ui::GestureState;
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

LongPressState &StateOfPress(LongPress self) {
    return StateOf<LongPressState>(self);
}

bool IsPossible(LongPress self) {
    return RecognizerStateOf(self).state == GestureState::kPossible;
}

void TouchesBegan(LongPress self, objc::SEL, ns::Set, ui::Event) {
    LongPressState &state = StateOfPress(self);
    const std::size_t fingers = RecognizerStateOf(self).touches.size();
    if (!IsPossible(self) || fingers < state.touchesRequired) {
        return;
    }
    if (fingers > state.touchesRequired) {
        SetGestureState(self, GestureState::kFailed);
        return;
    }
    state.landing = RecognizerLocation(self);
    state.timer = clock::Schedule(state.minimumDuration, [self] {
        if (IsPossible(self)) {
            SetGestureState(self, GestureState::kBegan);
            SettleRecognizers();
        }
    });
}

void TouchesMoved(LongPress self, objc::SEL, ns::Set, ui::Event) {
    const LongPressState &state = StateOfPress(self);
    if (!IsPossible(self)) {
        SetGestureState(self, GestureState::kChanged);
    } else if (Distance(state.landing, RecognizerLocation(self)) > state.allowableMovement) {
        SetGestureState(self, GestureState::kFailed);
    }
}

void TouchesEnded(LongPress self, objc::SEL, ns::Set, ui::Event) {
    if (IsPossible(self)) {
        SetGestureState(self, GestureState::kFailed);
    } else if (FingersDown(self) < StateOfPress(self).touchesRequired) {
        SetGestureState(self, GestureState::kEnded);
    }
}

void TouchesCancelled(LongPress self, objc::SEL, ns::Set, ui::Event) {
    SetGestureState(self, GestureState::kCancelled);
}

void Reset(LongPress self, objc::SEL) {
    clock::Cancel(StateOfPress(self).timer);
}

template <auto Member> auto Get(LongPress self, objc::SEL) {
    return StateOfPress(self).*Member;
}

template <auto Member, class T> void Set(LongPress self, objc::SEL, T value) {
    StateOfPress(self).*Member = value;
}

} // namespace

void RegisterLongPressGestureRecognizer() {
    using S = LongPressState;
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"touchesBegan:withEvent:", &TouchesBegan>(),
        objc::MethodNamed<"touchesMoved:withEvent:", &TouchesMoved>(),
        objc::MethodNamed<"touchesEnded:withEvent:", &TouchesEnded>(),
        objc::MethodNamed<"touchesCancelled:withEvent:", &TouchesCancelled>(),
        objc::MethodNamed<"reset", &Reset>(),
        objc::MethodNamed<"minimumPressDuration", &Get<&S::minimumDuration>>(),
        objc::MethodNamed<"setMinimumPressDuration:", &Set<&S::minimumDuration, double>>(),
        objc::MethodNamed<"allowableMovement", &Get<&S::allowableMovement>>(),
        objc::MethodNamed<"setAllowableMovement:", &Set<&S::allowableMovement, double>>(),
        objc::MethodNamed<"numberOfTouchesRequired", &Get<&S::touchesRequired>>(),
        objc::MethodNamed<"setNumberOfTouchesRequired:", &Set<&S::touchesRequired, unsigned long>>(),
    };
    RegisterClassWithState<LongPressState>("UILongPressGestureRecognizer", "UIGestureRecognizer", methods);
}

} // namespace sim
