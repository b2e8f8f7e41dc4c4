#include "runtime/native_class.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/touch_delivery.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <limits>

namespace sim {
namespace {

using ui::GestureState;
using Pan = ui::PanGestureRecognizer;

/// How far (points) the fingers must move before it is a pan.
constexpr double kSlop = 10;
/// The stretch of time (seconds) over which the velocity is taken.
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

PanState &StateOfPan(Pan self) {
    return StateOf<PanState>(self);
}

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

void TouchesBegan(Pan self, objc::SEL, ns::Set, ui::Event event) {
    RecognizerState &recognizer = RecognizerStateOf(self);
    PanState &state = StateOfPan(self);
    if (recognizer.touches.size() > state.maximumTouches) {
        if (recognizer.state == GestureState::kPossible) {
            SetGestureState(self, GestureState::kFailed);
        } else { // a pan under way does not mind another finger
            std::erase_if(recognizer.touches, [event](const objc::Ref<ui::Touch> &touch) {
                return touch.get() == EventStateOf(event).changed.get();
            });
        }
    }
    RecognizerLocation(self);
    AddSample(state);
}

void TouchesMoved(Pan self, objc::SEL, ns::Set, ui::Event event) {
    const RecognizerState &recognizer = RecognizerStateOf(self);
    PanState &state = StateOfPan(self);
    // The middle of the fingers moves; a finger that lands or lifts does not move it.
    const TouchState &touch = TouchStateOf(EventStateOf(event).changed);
    const cg::Point step =
        Scaled(Difference(touch.location, touch.previousLocation), 1 / static_cast<double>(recognizer.touches.size()));
    state.moved = Sum(state.moved, step);
    state.translation = Sum(state.translation, step);
    AddSample(state);
    RecognizerLocation(self);
    if (recognizer.state != GestureState::kPossible) {
        SetGestureState(self, GestureState::kChanged);
    } else if (recognizer.touches.size() >= state.minimumTouches && Distance({}, state.moved) >= kSlop) {
        SetGestureState(self, GestureState::kBegan);
    }
}

void Finish(Pan self, GestureState end) {
    AddSample(StateOfPan(self));
    if (FingersDown(self) < StateOfPan(self).minimumTouches) {
        SetGestureState(self, RecognizerStateOf(self).state == GestureState::kPossible ? GestureState::kFailed : end);
    }
}

void TouchesEnded(Pan self, objc::SEL, ns::Set, ui::Event) {
    Finish(self, GestureState::kEnded);
}

void TouchesCancelled(Pan self, objc::SEL, ns::Set, ui::Event) {
    Finish(self, GestureState::kCancelled);
}

void Reset(Pan self, objc::SEL) {
    PanState &state = StateOfPan(self);
    state.translation = {};
    state.moved = {};
    state.samples.clear();
}

cg::Point TranslationInView(Pan self, objc::SEL, ui::View view) {
    return ScreenToView(self, StateOfPan(self).translation, view);
}

void SetTranslation(Pan self, objc::SEL, cg::Point translation, ui::View view) {
    StateOfPan(self).translation = ViewToScreen(self, translation, view);
}

/// Points a second.
cg::Point VelocityInView(Pan self, objc::SEL, ui::View view) {
    const std::vector<PanSample> &samples = StateOfPan(self).samples;
    if (samples.empty() || samples.back().time <= samples.front().time) {
        return {};
    }
    const cg::Point moved = Difference(samples.back().moved, samples.front().moved);
    return ScreenToView(self, Scaled(moved, 1 / (samples.back().time - samples.front().time)), view);
}

template <auto Member> auto Get(Pan self, objc::SEL) {
    return StateOfPan(self).*Member;
}

template <auto Member, class T> void Set(Pan self, objc::SEL, T value) {
    StateOfPan(self).*Member = value;
}

} // namespace

void RegisterPanGestureRecognizer() {
    using S = PanState;
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"touchesBegan:withEvent:", &TouchesBegan>(),
        objc::MethodNamed<"touchesMoved:withEvent:", &TouchesMoved>(),
        objc::MethodNamed<"touchesEnded:withEvent:", &TouchesEnded>(),
        objc::MethodNamed<"touchesCancelled:withEvent:", &TouchesCancelled>(),
        objc::MethodNamed<"reset", &Reset>(),
        objc::MethodNamed<"translationInView:", &TranslationInView>(),
        objc::MethodNamed<"setTranslation:inView:", &SetTranslation>(),
        objc::MethodNamed<"velocityInView:", &VelocityInView>(),
        objc::MethodNamed<"minimumNumberOfTouches", &Get<&S::minimumTouches>>(),
        objc::MethodNamed<"setMinimumNumberOfTouches:", &Set<&S::minimumTouches, unsigned long>>(),
        objc::MethodNamed<"maximumNumberOfTouches", &Get<&S::maximumTouches>>(),
        objc::MethodNamed<"setMaximumNumberOfTouches:", &Set<&S::maximumTouches, unsigned long>>(),
    };
    RegisterClassWithState<PanState>("UIPanGestureRecognizer", "UIGestureRecognizer", methods);
}

} // namespace sim
