// UIPanGestureRecognizer.

#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/touch_delivery.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <limits>

namespace sim {
namespace {

using Pan = ui::PanGestureRecognizer;

/// How far (points) the fingers must move before it is a pan.
constexpr double kSlop = 10;
/// The time (seconds) over which the velocity is measured.
constexpr double kVelocityWindow = 0.1;

struct PanSample {
    double time;
    cg::Point moved;
};

struct PanState {
    unsigned long minimumTouches = 1;
    unsigned long maximumTouches = std::numeric_limits<unsigned>::max();
    cg::Point translation; // on the screen, since it was last set
    cg::Point moved;       // on the screen, since the gesture's start
    std::vector<PanSample> samples;
};

cg::Point Sum(cg::Point left, cg::Point right) {
    return {left.x + right.x, left.y + right.y};
}

cg::Point Difference(cg::Point left, cg::Point right) {
    return {left.x - right.x, left.y - right.y};
}

cg::Point Scaled(cg::Point point, double factor) {
    return {point.x * factor, point.y * factor};
}

/// A movement on the screen as a view sees it; nil stands for the window.
cg::Point ScreenToView(Pan self, cg::Point movement, ui::View view) {
    const ui::Window window = WindowOf(RecognizerStateOf(self).view);
    return Difference(LocationInView(movement, view, window), LocationInView({}, view, window));
}

cg::Point ViewToScreen(Pan self, cg::Point movement, ui::View view) {
    if (!view) {
        view = WindowOf(RecognizerStateOf(self).view);
    }
    return view ? Difference(ToScreen(view, movement), ToScreen(view, {})) : movement;
}

void AddSample(PanState &state) {
    const double now = clock::Now();
    std::erase_if(state.samples, [now](const PanSample &sample) { return now - sample.time > kVelocityWindow; });
    state.samples.push_back({now, state.moved});
}

void TouchesBegan(Pan self, ns::Set, ui::Event event) {
    RecognizerState &recognizer = RecognizerStateOf(self);
    auto &state = StateOf<PanState>(self);
    if (recognizer.touches.size() > state.maximumTouches) {
        if (recognizer.state == UIGestureRecognizerStatePossible) {
            SetGestureState(self, UIGestureRecognizerStateFailed);
        } else { // a pan that has begun ignores another finger
            std::erase(recognizer.touches, EventStateOf(event).changed.get());
        }
    }
    RecognizerLocation(self);
    AddSample(state);
}

void TouchesMoved(Pan self, ns::Set, ui::Event event) {
    const RecognizerState &recognizer = RecognizerStateOf(self);
    auto &state = StateOf<PanState>(self);
    // Only movement counts: a finger that lands or lifts shifts the middle of the fingers without moving anything.
    const TouchState &touch = TouchStateOf(EventStateOf(event).changed);
    const cg::Point step =
        Scaled(Difference(touch.location, touch.previousLocation), 1 / static_cast<double>(recognizer.touches.size()));
    state.moved = Sum(state.moved, step);
    state.translation = Sum(state.translation, step);
    AddSample(state);
    RecognizerLocation(self);
    if (recognizer.state != UIGestureRecognizerStatePossible) {
        SetGestureState(self, UIGestureRecognizerStateChanged);
    } else if (recognizer.touches.size() >= state.minimumTouches && Distance({}, state.moved) >= kSlop) {
        SetGestureState(self, UIGestureRecognizerStateBegan);
    }
}

void Finish(Pan self, UIGestureRecognizerState end) {
    AddSample(StateOf<PanState>(self));
    if (FingersDown(self) < StateOf<PanState>(self).minimumTouches) {
        SetGestureState(self, RecognizerStateOf(self).state == UIGestureRecognizerStatePossible
                                  ? UIGestureRecognizerStateFailed
                                  : end);
    }
}

/// Points a second.
cg::Point VelocityInView(Pan self, ui::View view) {
    const std::vector<PanSample> &samples = StateOf<PanState>(self).samples;
    if (samples.empty() || samples.back().time <= samples.front().time) {
        return {};
    }
    const cg::Point moved = Difference(samples.back().moved, samples.front().moved);
    return ScreenToView(self, Scaled(moved, 1 / (samples.back().time - samples.front().time)), view);
}

} // namespace

void DefinePanGestureRecognizer() {
    auto pan = Class<PanState>("UIPanGestureRecognizer", "UIGestureRecognizer");
    pan.Property<"minimumNumberOfTouches", &PanState::minimumTouches>();
    pan.Property<"maximumNumberOfTouches", &PanState::maximumTouches>();
    pan.Method<"translationInView:">(
        [](Pan self, ui::View view) { return ScreenToView(self, StateOf<PanState>(self).translation, view); });
    pan.Method<"setTranslation:inView:">([](Pan self, cg::Point translation, ui::View view) {
        StateOf<PanState>(self).translation = ViewToScreen(self, translation, view);
    });
    pan.Method<"velocityInView:", &VelocityInView>();
    pan.Method<"touchesBegan:withEvent:", &TouchesBegan>();
    pan.Method<"touchesMoved:withEvent:", &TouchesMoved>();
    pan.Method<"touchesEnded:withEvent:">(
        [](Pan self, ns::Set, ui::Event) { Finish(self, UIGestureRecognizerStateEnded); });
    pan.Method<"touchesCancelled:withEvent:">(
        [](Pan self, ns::Set, ui::Event) { Finish(self, UIGestureRecognizerStateCancelled); });
    pan.Method<"reset">([](PanState &state) {
        state.translation = {};
        state.moved = {};
        state.samples.clear();
    });
}

} // namespace sim
