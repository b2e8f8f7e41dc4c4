#include "uikit/touch_delivery.hpp"

#include "runtime/clock.hpp"
#include "runtime/lasting.hpp"
#include "uikit/application.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/scoped_flag.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>

namespace sim {
namespace {

using ui::GestureRecognizer;
using Recognizers = std::vector<objc::Ref<GestureRecognizer>>;
using Touches = std::vector<objc::Ref<ui::Touch>>;

struct Delivery {
    Touches down;         // every touch whose last event has not been delivered yet
    Recognizers engaged;  // every recogniser with something to settle
    bool running = false; // an event is being delivered, or recognisers are being settled
};

Delivery &Shared() {
    return Lasting<Delivery>();
}

ns::Set SetOf(ui::Touch touch) {
    return objc::SendClass<ns::Set, "setWithObject:", ns::Set>(touch);
}

/// Sends the message for a touch's phase; responders and recognisers have the same four.
template <objc::Handle Receiver> void Tell(Receiver receiver, ui::Touch touch, UITouchPhase phase, ui::Event event) {
    switch (phase) {
    case UITouchPhaseBegan:
        return objc::Send<"touchesBegan:withEvent:", void>(receiver, SetOf(touch), event);
    case UITouchPhaseMoved:
        return objc::Send<"touchesMoved:withEvent:", void>(receiver, SetOf(touch), event);
    case UITouchPhaseStationary:
        return;
    case UITouchPhaseEnded:
        return objc::Send<"touchesEnded:withEvent:", void>(receiver, SetOf(touch), event);
    case UITouchPhaseCancelled:
        return objc::Send<"touchesCancelled:withEvent:", void>(receiver, SetOf(touch), event);
    }
}

bool Wants(GestureRecognizer recognizer, ui::Touch touch) {
    const RecognizerState &state = RecognizerStateOf(recognizer);
    if (!state.enabled || IsOver(state.state)) {
        return false;
    }
    constexpr objc::FixedString kShouldReceive{"gestureRecognizer:shouldReceiveTouch:"};
    const objc::Ref<ns::Object> delegate = state.delegate.Lock();
    return !delegate || !delegate->respondsToSelector(objc::Selector<kShouldReceive>()) ||
           objc::Send<kShouldReceive, bool>(delegate.get(), recognizer, touch);
}

/// Gives a new touch to the recognisers of its view and of all views around it, the innermost first.
void Distribute(ui::Touch touch) {
    for (objc::Ref<ui::View> view = TouchStateOf(touch).view; view; view = ViewStateOf(view).superview) {
        for (const objc::Ref<GestureRecognizer> &recognizer : Recognizers(ViewStateOf(view).recognizers)) {
            if (Wants(recognizer, touch)) {
                TouchStateOf(touch).recognizers.push_back(recognizer);
                RecognizerStateOf(recognizer).touches.emplace_back(touch);
                Engage(recognizer);
            }
        }
    }
}

bool Watches(GestureRecognizer recognizer, ui::Touch touch) {
    const Touches &touches = RecognizerStateOf(recognizer).touches;
    return std::ranges::count(touches, touch, &objc::Ref<ui::Touch>::get) != 0;
}

/// A view that does not take several touches is told only of the first one.
bool IsForView(ui::Touch touch) {
    const TouchState &state = TouchStateOf(touch);
    if (!state.view || ViewStateOf(state.view).multipleTouchEnabled) {
        return static_cast<bool>(state.view);
    }
    return std::ranges::none_of(Shared().down, [&](const objc::Ref<ui::Touch> &other) {
        const TouchState &otherState = TouchStateOf(other);
        return !(other.get() == touch) && otherState.view.get() == state.view.get() && otherState.seenByView;
    });
}

void TellView(ui::Touch touch, ui::Event event) {
    TouchState &state = TouchStateOf(touch);
    if (state.phase == UITouchPhaseBegan) {
        state.takenFromView = state.takenFromView || !IsForView(touch);
        state.seenByView = !state.takenFromView;
    }
    if (!state.takenFromView) {
        const objc::Ref<ui::View> view = state.view;
        Tell(view.get(), touch, state.phase, event);
    }
}

void TakeFromView(ui::Touch touch) {
    TouchState &state = TouchStateOf(touch);
    if (state.takenFromView) {
        return;
    }
    state.takenFromView = true;
    if (state.seenByView) {
        const UITouchPhase phase = std::exchange(state.phase, UITouchPhaseCancelled);
        const auto event = ns::New<ui::Event>();
        EventStateOf(event).timestamp = clock::Now();
        EventStateOf(event).touches = Shared().down;
        EventStateOf(event).changed = touch;
        const objc::Ref<ui::View> view = state.view;
        Tell(view.get(), touch, UITouchPhaseCancelled, event);
        state.phase = phase;
    }
}

bool HasTouchDown(GestureRecognizer recognizer) {
    return std::ranges::any_of(Shared().down, [recognizer](const objc::Ref<ui::Touch> &touch) {
        const Recognizers &given = TouchStateOf(touch).recognizers;
        return std::ranges::count(given, recognizer, &objc::Ref<GestureRecognizer>::get) != 0;
    });
}

void SendDueActions() {
    for (const objc::Ref<GestureRecognizer> &recognizer : Recognizers(Shared().engaged)) {
        if (std::exchange(RecognizerStateOf(recognizer).actionDue, false)) {
            SendActions(recognizer);
        }
    }
}

void TakeTouchesFromViews() {
    for (const objc::Ref<GestureRecognizer> &recognizer : Recognizers(Shared().engaged)) {
        const RecognizerState &state = RecognizerStateOf(recognizer);
        if (!state.recognized || !state.cancelsTouchesInView) {
            continue;
        }
        for (const objc::Ref<ui::Touch> &touch : Touches(state.touches)) {
            TakeFromView(touch);
        }
    }
}

/// Resets the recognisers whose gesture is over and whose fingers have all been lifted.
void ResetRecognizers() {
    for (const objc::Ref<GestureRecognizer> &recognizer : Recognizers(Shared().engaged)) {
        RecognizerState &state = RecognizerStateOf(recognizer);
        if (IsOver(state.state)) {
            RecognizerLocation(recognizer);
            state.touches.clear();
        }
        const bool idle = !state.waiting && !state.actionDue && !IsUnderWay(state.state);
        if (!idle || HasTouchDown(recognizer)) {
            continue;
        }
        objc::Send<"reset", void>(recognizer.get());
        state.state = UIGestureRecognizerStatePossible;
        state.recognized = false;
        state.touches.clear();
        std::erase(Shared().engaged, recognizer.get());
    }
}

bool AnyActionDue() {
    const Recognizers &engaged = Shared().engaged;
    return std::ranges::any_of(engaged, [](const auto &recognizer) { return RecognizerStateOf(recognizer).actionDue; });
}

void Settle() {
    do {
        SendDueActions();
        TakeTouchesFromViews();
    } while (AnyActionDue());
    ResetRecognizers();
}

/// Forgets a lifted touch, also when an exception leaves its last event.
class LastEvent {
  public:
    explicit LastEvent(ui::Touch touch) : touch_(touch) {}
    LastEvent(const LastEvent &) = delete;
    LastEvent &operator=(const LastEvent &) = delete;
    ~LastEvent() {
        if (!IsLifted(TouchStateOf(touch_))) {
            return;
        }
        std::erase(Shared().down, touch_.get());
        for (const objc::Ref<GestureRecognizer> &recognizer : TouchStateOf(touch_).recognizers) {
            std::erase(RecognizerStateOf(recognizer).touches, touch_.get());
        }
        // Else the touch and its recognisers would keep one another alive while somebody keeps an event.
        TouchStateOf(touch_).recognizers.clear();
    }

  private:
    objc::Ref<ui::Touch> touch_;
};

} // namespace

void DeliverEvent(ui::Window window, ui::Event event) {
    const objc::Ref<ui::Event> keep = event;
    const objc::Ref<ui::Touch> touch = EventStateOf(event).changed;
    const TouchState &state = TouchStateOf(touch);
    if (!(state.window.get() == window)) {
        return;
    }
    const ScopedFlag running(Shared().running);
    {
        const LastEvent last(touch);
        if (state.phase == UITouchPhaseBegan) {
            Shared().down.push_back(touch);
            Distribute(touch);
        }
        for (const objc::Ref<GestureRecognizer> &recognizer : Recognizers(state.recognizers)) {
            if (Watches(recognizer, touch) && !IsOver(RecognizerStateOf(recognizer).state)) {
                Tell(recognizer.get(), touch, state.phase, event);
            }
        }
        Settle();
        TellView(touch, event);
    }
    Settle();
}

std::vector<ui::Window> WindowsTouchedBy(ui::Event event) {
    const ui::Window window = TouchStateOf(EventStateOf(event).changed).window;
    return window ? std::vector<ui::Window>{window} : std::vector<ui::Window>{};
}

ui::View HitTestWindows(cg::Point point, ui::Event event) {
    for (const ui::Window window : WindowsFrontToBack()) {
        if (const ui::View hit = window.hitTest(FromSuperview(ViewStateOf(window).model, point), event)) {
            return hit;
        }
    }
    return {};
}

void CancelTouchesOf(ui::View view) {
    for (const objc::Ref<GestureRecognizer> &recognizer : Recognizers(ViewStateOf(view).recognizers)) {
        CancelRecognizer(recognizer);
    }
    for (const objc::Ref<ui::Touch> &touch : Touches(Shared().down)) {
        if (TouchStateOf(touch).view.get() == view && !IsLifted(TouchStateOf(touch))) {
            TakeFromView(touch);
        }
    }
}

void Engage(GestureRecognizer recognizer) {
    Recognizers &engaged = Shared().engaged;
    if (std::ranges::count(engaged, recognizer, &objc::Ref<GestureRecognizer>::get) == 0) {
        engaged.emplace_back(recognizer);
    }
}

void SettleRecognizers() {
    if (!Shared().running) { // else the running delivery settles them at its end
        const ScopedFlag running(Shared().running);
        Settle();
    }
}

void ScheduleSettling() {
    clock::Schedule(0, &SettleRecognizers);
}

} // namespace sim
