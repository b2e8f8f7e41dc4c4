#include "uikit/gesture_recognizer.hpp"

#include "uikit/classes.hpp"
#include "uikit/touch_delivery.hpp"
#include "uikit/view.hpp"

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

using ui::GestureRecognizer;

/// Asks the delegate; `otherwise` is the answer when it does not implement the question.
template <objc::FixedString Name, class... A>
bool AskDelegate(GestureRecognizer recognizer, bool otherwise, A... arguments) {
    const objc::Ref<ns::Object> delegate = RecognizerStateOf(recognizer).delegate.Lock();
    return delegate && delegate->respondsToSelector(objc::Selector<Name>())
               ? objc::Send<Name, bool>(delegate.get(), recognizer, arguments...)
               : otherwise;
}

/// The other recognisers that share a touch with this one.
std::vector<objc::Ref<GestureRecognizer>> Competitors(GestureRecognizer recognizer) {
    std::vector<objc::Ref<GestureRecognizer>> others;
    for (const objc::Ref<ui::Touch> &touch : RecognizerStateOf(recognizer).touches) {
        for (const objc::Ref<GestureRecognizer> &other : TouchStateOf(touch).recognizers) {
            if (!(other.get() == recognizer) &&
                std::ranges::count(others, other.get(), &objc::Ref<GestureRecognizer>::get) == 0) {
                others.push_back(other);
            }
        }
    }
    return others;
}

/// Whether recognising one gesture prevents the other.
bool Excludes(GestureRecognizer one, GestureRecognizer other) {
    constexpr objc::FixedString kSimultaneously{
        "gestureRecognizer:shouldRecognizeSimultaneouslyWithGestureRecognizer:"};
    return !AskDelegate<kSimultaneously>(one, false, other) && !AskDelegate<kSimultaneously>(other, false, one) &&
           objc::Send<"canPreventGestureRecognizer:", bool>(one, other) &&
           objc::Send<"canBePreventedByGestureRecognizer:", bool>(other, one);
}

bool ViewAllows(ui::View view, GestureRecognizer recognizer) {
    return !view || objc::Send<"gestureRecognizerShouldBegin:", bool>(view, recognizer);
}

bool MayBegin(GestureRecognizer recognizer) {
    const RecognizerState &state = RecognizerStateOf(recognizer);
    for (const objc::Ref<GestureRecognizer> &other : Competitors(recognizer)) {
        if (RecognizerStateOf(other).recognized && Excludes(other, recognizer)) {
            return false;
        }
    }
    if (!AskDelegate<"gestureRecognizerShouldBegin:">(recognizer, true) || !ViewAllows(state.view, recognizer)) {
        return false;
    }
    // The touched view is asked as well: a button keeps its taps from recognisers of the views around it.
    const std::vector<objc::Ref<ui::Touch>> touches = state.touches;
    return std::ranges::all_of(touches, [&](const objc::Ref<ui::Touch> &touch) {
        const ui::View touched = TouchStateOf(touch).view;
        return touched == state.view || ViewAllows(touched, recognizer);
    });
}

void Recognize(GestureRecognizer recognizer, UIGestureRecognizerState next) {
    RecognizerState &state = RecognizerStateOf(recognizer);
    if (!MayBegin(recognizer)) {
        state.state = UIGestureRecognizerStateFailed;
        return;
    }
    state.state = next;
    state.recognized = true;
    state.actionDue = true;
    for (const objc::Ref<GestureRecognizer> &other : Competitors(recognizer)) {
        RecognizerState &rival = RecognizerStateOf(other);
        if (rival.state == UIGestureRecognizerStatePossible && Excludes(recognizer, other)) {
            rival.state = UIGestureRecognizerStateFailed;
        }
    }
}

GestureRecognizer InitWithTarget(ns::Object self, ns::Object target, objc::SEL action) {
    const auto recognizer = objc::SendSuper<"init", GestureRecognizer>(self);
    if (target) {
        RecognizerStateOf(recognizer).targets.push_back({WeakObject(target), action});
    }
    return recognizer;
}

void AddTarget(RecognizerState &state, ns::Object target, objc::SEL action) {
    const auto isSame = [&](const TargetAction &entry) { return entry.Is(target, action); };
    if (target && std::ranges::none_of(state.targets, isSame)) {
        state.targets.push_back({WeakObject(target), action});
    }
}

cg::Point InView(GestureRecognizer recognizer, cg::Point point, ui::View view) {
    return LocationInView(point, view, WindowOf(RecognizerStateOf(recognizer).view));
}

cg::Point LocationOfTouch(GestureRecognizer self, unsigned long index, ui::View view) {
    const std::vector<objc::Ref<ui::Touch>> &touches = RecognizerStateOf(self).touches;
    const bool exists = index < touches.size();
    return InView(self, exists ? TouchStateOf(touches[index]).location : RecognizerLocation(self), view);
}

/// What subclasses override, each for its kind of gesture.
void DefineKindsPart(Class<RecognizerState> &recognizer) {
    recognizer.Method<"canPreventGestureRecognizer:">([](GestureRecognizer, GestureRecognizer) { return true; });
    recognizer.Method<"canBePreventedByGestureRecognizer:">([](GestureRecognizer, GestureRecognizer) { return true; });
    recognizer.Method<"touchesBegan:withEvent:">([](GestureRecognizer, ns::Set, ui::Event) {});
    recognizer.Method<"touchesMoved:withEvent:">([](GestureRecognizer, ns::Set, ui::Event) {});
    recognizer.Method<"touchesEnded:withEvent:">([](GestureRecognizer, ns::Set, ui::Event) {});
    recognizer.Method<"touchesCancelled:withEvent:">([](GestureRecognizer, ns::Set, ui::Event) {});
    recognizer.Method<"reset">([](GestureRecognizer) {});
}

void DefineTouches(Class<RecognizerState> &recognizer) {
    recognizer.Method<"locationInView:">(
        [](GestureRecognizer self, ui::View view) { return InView(self, RecognizerLocation(self), view); });
    recognizer.Method<"locationOfTouch:inView:", &LocationOfTouch>();
    recognizer.Method<"numberOfTouches">([](const RecognizerState &state) { return state.touches.size(); });
    recognizer.Method<"ignoreTouch:forEvent:">(
        [](RecognizerState &state, ui::Touch touch, ui::Event) { std::erase(state.touches, touch); });
}

} // namespace

void DefineGestureRecognizer() {
    auto recognizer = Class<RecognizerState>("UIGestureRecognizer", "NSObject");
    recognizer.Method<"initWithTarget:action:", &InitWithTarget>();
    recognizer.Method<"init">([](GestureRecognizer self) { return self.initWithTarget({}, nullptr); });
    recognizer.Method<"addTarget:action:", &AddTarget>();
    recognizer.Method<"removeTarget:action:">([](RecognizerState &state, ns::Object target, objc::SEL action) {
        std::erase_if(state.targets, [&](const TargetAction &entry) { return entry.Fits(target, action); });
    });
    recognizer.ReadOnly<"state", &RecognizerState::state>();
    recognizer.Method<"setState:">([](GestureRecognizer self, UIGestureRecognizerState state) {
        SetGestureState(self, state);
        ScheduleSettling();
    });
    recognizer.ReadOnly<"view", &RecognizerState::view>();
    recognizer.Property<"delegate", &RecognizerState::delegate>();
    recognizer.Property<"isEnabled", &RecognizerState::enabled>([](GestureRecognizer self) {
        if (!RecognizerStateOf(self).enabled) {
            CancelRecognizer(self);
        }
    });
    recognizer.Property<"cancelsTouchesInView", &RecognizerState::cancelsTouchesInView>();
    DefineTouches(recognizer);
    DefineKindsPart(recognizer);
}

RecognizerState &RecognizerStateOf(GestureRecognizer recognizer) {
    return StateOf<RecognizerState>(recognizer);
}

bool IsOver(UIGestureRecognizerState state) {
    return state == UIGestureRecognizerStateEnded || state == UIGestureRecognizerStateCancelled ||
           state == UIGestureRecognizerStateFailed;
}

bool IsUnderWay(UIGestureRecognizerState state) {
    return state == UIGestureRecognizerStateBegan || state == UIGestureRecognizerStateChanged;
}

void SetGestureState(GestureRecognizer recognizer, UIGestureRecognizerState next) {
    RecognizerState &state = RecognizerStateOf(recognizer);
    if (state.state == UIGestureRecognizerStatePossible) {
        if (IsUnderWay(next) || next == UIGestureRecognizerStateEnded) {
            Recognize(recognizer, next);
        } else if (IsOver(next)) {
            state.state = UIGestureRecognizerStateFailed;
        }
    } else if (IsUnderWay(state.state) && next != UIGestureRecognizerStatePossible &&
               next != UIGestureRecognizerStateBegan) {
        state.state = next == UIGestureRecognizerStateFailed ? UIGestureRecognizerStateCancelled : next;
        state.actionDue = true;
    }
    Engage(recognizer);
}

void CancelRecognizer(GestureRecognizer recognizer) {
    const RecognizerState &state = RecognizerStateOf(recognizer);
    if (IsUnderWay(state.state) || !state.touches.empty() || state.waiting) {
        SetGestureState(recognizer, UIGestureRecognizerStateCancelled);
        ScheduleSettling();
    }
}

void SetRecognizerView(GestureRecognizer recognizer, ui::View view) {
    RecognizerStateOf(recognizer).view = view;
}

cg::Point RecognizerLocation(GestureRecognizer recognizer) {
    RecognizerState &state = RecognizerStateOf(recognizer);
    if (!state.touches.empty()) {
        cg::Point sum;
        for (const objc::Ref<ui::Touch> &touch : state.touches) {
            const cg::Point at = TouchStateOf(touch).location;
            sum = {sum.x + at.x, sum.y + at.y};
        }
        const auto count = static_cast<double>(state.touches.size());
        state.lastLocation = {sum.x / count, sum.y / count};
    }
    return state.lastLocation;
}

std::size_t FingersDown(GestureRecognizer recognizer) {
    const std::vector<objc::Ref<ui::Touch>> &touches = RecognizerStateOf(recognizer).touches;
    return static_cast<std::size_t>(std::count_if(touches.begin(), touches.end(),
                                                  [](const auto &touch) { return !IsLifted(TouchStateOf(touch)); }));
}

void SendActions(GestureRecognizer recognizer) {
    const std::vector<TargetAction> targets = RecognizerStateOf(recognizer).targets;
    for (const TargetAction &entry : targets) {
        // A method without a parameter ignores the recogniser.
        entry.target.Lock()->performSelector(entry.action, recognizer);
    }
}

double Distance(cg::Point from, cg::Point to) {
    return std::hypot(to.x - from.x, to.y - from.y);
}

} // namespace sim
