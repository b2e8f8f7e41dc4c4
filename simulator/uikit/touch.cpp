#include "uikit/touch.hpp"

#include "runtime/clock.hpp"
#include "runtime/lasting.hpp"
#include "uikit/event.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/scene_state.hpp"
#include "uikit/touch_delivery.hpp"

#include <map>

namespace sim::touch {
namespace {

/// A tap within this time (seconds) and distance (points) of the last one counts on from it.
constexpr double kTapPause = 0.35;
constexpr double kTapDistance = 45;

struct LastTap {
    double time = 0;
    cg::Point location;
    unsigned long count = 0;
};

LastTap &Last() {
    static LastTap last;
    return last;
}

struct Glass {
    std::map<TouchId, objc::Ref<ui::Touch>> fingers;
};

std::map<TouchId, objc::Ref<ui::Touch>> &Fingers() {
    return Lasting<Glass>().fingers;
}

objc::Ref<ui::Event> MakeEvent(const objc::Ref<ui::Touch> &changed) {
    auto event = ns::New<ui::Event>();
    EventState &state = EventStateOf(event);
    state.timestamp = clock::Now();
    state.changed = changed;
    for (const auto &[finger, touch] : Fingers()) {
        state.touches.push_back(touch);
    }
    return event;
}

void Send(const objc::Ref<ui::Touch> &touch, UITouchPhase phase) {
    TouchState &state = TouchStateOf(touch);
    state.phase = phase;
    state.timestamp = clock::Now();
    const objc::Ref<ui::Event> event = MakeEvent(touch);
    objc::Send<"sendEvent:", void>(ui::Application::sharedApplication(), event.get());
    state.previousLocation = state.location;
}

/// Lifts the finger: its last event is sent, then it is forgotten.
void Lift(TouchId finger, UITouchPhase phase) {
    const auto place = Fingers().find(finger);
    if (place == Fingers().end()) {
        return;
    }
    // Forgotten even if a handler of that event raises.
    struct Eraser {
        TouchId finger;
        ~Eraser() {
            Fingers().erase(finger);
        }
    } const eraser{finger};
    const objc::Ref<ui::Touch> touch = place->second;
    const TouchState &state = TouchStateOf(touch);
    if (phase == UITouchPhaseEnded) {
        Last() = {clock::Now(), state.location, state.tapCount};
    }
    Send(touch, phase);
}

} // namespace

void Began(TouchId finger, cg::Point point) {
    if (IsDown(finger)) {
        return;
    }
    const auto touch = ns::New<ui::Touch>();
    TouchState &state = TouchStateOf(touch);
    state.location = state.previousLocation = point;
    state.timestamp = clock::Now();
    const LastTap &last = Last();
    const bool goesOn = clock::Now() - last.time <= kTapPause && Distance(point, last.location) <= kTapDistance;
    state.tapCount = goesOn ? last.count + 1 : 1;
    Fingers()[finger] = touch;
    state.view = HitTestWindows(point, MakeEvent(touch));
    state.window = objc::As<ui::Window>(state.view->window());
    // Since iOS 14.2, before the touch is delivered: https://developer.apple.com/forums/thread/667958
    MakeKey(state.window);
    Send(touch, UITouchPhaseBegan);
}

void Moved(TouchId finger, cg::Point point) {
    const auto place = Fingers().find(finger);
    if (place == Fingers().end()) {
        return;
    }
    const objc::Ref<ui::Touch> touch = place->second;
    TouchState &state = TouchStateOf(touch);
    if (state.location != point) {
        state.location = point;
        Send(touch, UITouchPhaseMoved);
    }
}

void Ended(TouchId finger, cg::Point point) {
    Moved(finger, point);
    Lift(finger, UITouchPhaseEnded);
}

void Cancelled(TouchId finger) {
    Lift(finger, UITouchPhaseCancelled);
}

bool IsDown(TouchId finger) {
    return Fingers().contains(finger);
}

} // namespace sim::touch
