#include "uikit/gesture_recognizer.hpp"

#include "runtime/native_class.hpp"
#include "uikit/touch_delivery.hpp"
#include "uikit/view.hpp"

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

using ui::GestureRecognizer;
using ui::GestureState;

/// Asks the delegate a question that it may leave unimplemented.
template <objc::FixedString Name, class... A>
bool AskDelegate(GestureRecognizer recognizer, bool otherwise, A... arguments) {
    const objc::Ref<ns::Object> delegate = RecognizerStateOf(recognizer).delegate.Lock();
    return delegate && delegate->respondsToSelector(objc::Selector<Name>())
               ? objc::Send<Name, bool>(delegate.get(), recognizer, arguments...)
               : otherwise;
}

/// The other recognisers that were given one of this one's touches.
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

/// Whether the one gesture, recognised, keeps the other from being so.
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
    // The touched view has a say as well: a button keeps its taps from recognisers of the views around it.
    const std::vector<objc::Ref<ui::Touch>> touches = state.touches;
    return std::ranges::all_of(touches, [&](const objc::Ref<ui::Touch> &touch) {
        const ui::View touched = TouchStateOf(touch).view;
        return touched == state.view || ViewAllows(touched, recognizer);
    });
}

void Recognize(GestureRecognizer recognizer, GestureState next) {
    RecognizerState &state = RecognizerStateOf(recognizer);
    if (!MayBegin(recognizer)) {
        state.state = GestureState::kFailed;
        return;
    }
    state.state = next;
    state.recognized = true;
    state.actionDue = true;
    for (const objc::Ref<GestureRecognizer> &other : Competitors(recognizer)) {
        RecognizerState &rival = RecognizerStateOf(other);
        if (rival.state == GestureState::kPossible && Excludes(recognizer, other)) {
            rival.state = GestureState::kFailed;
        }
    }
}

GestureRecognizer InitWithTarget(GestureRecognizer self, objc::SEL, ns::Object target, objc::SEL action) {
    const GestureRecognizer recognizer{objc::SendSuper<"init", ns::Object>(ns::Object{self}).pointer};
    if (recognizer && target) {
        RecognizerStateOf(recognizer).targets.push_back({WeakObject(target), action});
    }
    return recognizer;
}

GestureRecognizer Init(GestureRecognizer self, objc::SEL) {
    return self.initWithTarget({}, nullptr);
}

void AddTarget(GestureRecognizer self, objc::SEL, ns::Object target, objc::SEL action) {
    std::vector<TargetAction> &targets = RecognizerStateOf(self).targets;
    const bool known =
        std::ranges::any_of(targets, [&](const TargetAction &entry) { return entry.Is(target, action); });
    if (target && !known) {
        targets.push_back({WeakObject(target), action});
    }
}

/// Nil stands for every target, a null selector for every action.
void RemoveTarget(GestureRecognizer self, objc::SEL, ns::Object target, objc::SEL action) {
    std::erase_if(RecognizerStateOf(self).targets, [&](const TargetAction &entry) {
        const ns::Object own = entry.target.Lock();
        return (!target || own == target) && (action == nullptr || sel_isEqual(entry.action, action) != 0);
    });
}

GestureState State(GestureRecognizer self, objc::SEL) {
    return RecognizerStateOf(self).state;
}

void SetState(GestureRecognizer self, objc::SEL, GestureState state) {
    SetGestureState(self, state);
    ScheduleSettling();
}

ui::View View(GestureRecognizer self, objc::SEL) {
    return RecognizerStateOf(self).view;
}

ns::Object Delegate(GestureRecognizer self, objc::SEL) {
    return RecognizerStateOf(self).delegate.Lock().get();
}

void SetDelegate(GestureRecognizer self, objc::SEL, ns::Object delegate) {
    RecognizerStateOf(self).delegate = WeakObject(delegate);
}

bool IsEnabled(GestureRecognizer self, objc::SEL) {
    return RecognizerStateOf(self).enabled;
}

void SetEnabled(GestureRecognizer self, objc::SEL, bool enabled) {
    RecognizerStateOf(self).enabled = enabled;
    if (!enabled) {
        CancelRecognizer(self);
    }
}

template <bool RecognizerState::*Member> bool GetFlag(GestureRecognizer self, objc::SEL) {
    return RecognizerStateOf(self).*Member;
}

template <bool RecognizerState::*Member> void SetFlag(GestureRecognizer self, objc::SEL, bool value) {
    RecognizerStateOf(self).*Member = value;
}

cg::Point InView(GestureRecognizer recognizer, cg::Point point, ui::View view) {
    return LocationInView(point, view, WindowOf(RecognizerStateOf(recognizer).view));
}

cg::Point Location(GestureRecognizer self, objc::SEL, ui::View view) {
    return InView(self, RecognizerLocation(self), view);
}

cg::Point LocationOfTouch(GestureRecognizer self, objc::SEL, unsigned long index, ui::View view) {
    const std::vector<objc::Ref<ui::Touch>> &touches = RecognizerStateOf(self).touches;
    const bool exists = index < touches.size();
    return InView(self, exists ? TouchStateOf(touches[index]).location : RecognizerLocation(self), view);
}

unsigned long NumberOfTouches(GestureRecognizer self, objc::SEL) {
    return RecognizerStateOf(self).touches.size();
}

bool AlwaysYes(GestureRecognizer, objc::SEL, GestureRecognizer) {
    return true;
}

void IgnoreTouches(GestureRecognizer, objc::SEL, ns::Set, ui::Event) {}

void IgnoreTouch(GestureRecognizer self, objc::SEL, ui::Touch touch, ui::Event) {
    std::erase_if(RecognizerStateOf(self).touches, [touch](const auto &watched) { return watched.get() == touch; });
}

void Reset(GestureRecognizer, objc::SEL) {}

} // namespace

RecognizerState &RecognizerStateOf(GestureRecognizer recognizer) {
    return StateOf<RecognizerState>(recognizer);
}

bool IsOver(GestureState state) {
    return state == GestureState::kEnded || state == GestureState::kCancelled || state == GestureState::kFailed;
}

bool IsUnderWay(GestureState state) {
    return state == GestureState::kBegan || state == GestureState::kChanged;
}

void SetGestureState(GestureRecognizer recognizer, GestureState next) {
    RecognizerState &state = RecognizerStateOf(recognizer);
    if (state.state == GestureState::kPossible) {
        if (IsUnderWay(next) || next == GestureState::kEnded) {
            Recognize(recognizer, next);
        } else if (IsOver(next)) {
            state.state = GestureState::kFailed;
        }
    } else if (IsUnderWay(state.state) && next != GestureState::kPossible && next != GestureState::kBegan) {
        state.state = next == GestureState::kFailed ? GestureState::kCancelled : next;
        state.actionDue = true;
    }
    Engage(recognizer);
}

void CancelRecognizer(GestureRecognizer recognizer) {
    const RecognizerState &state = RecognizerStateOf(recognizer);
    if (IsUnderWay(state.state) || !state.touches.empty() || state.waiting) {
        SetGestureState(recognizer, GestureState::kCancelled);
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
        // A method without an argument leaves the recogniser alone.
        entry.target.Lock()->performSelector(entry.action, recognizer);
    }
}

double Distance(cg::Point from, cg::Point to) {
    return std::hypot(to.x - from.x, to.y - from.y);
}

void RegisterGestureRecognizer() {
    using S = RecognizerState;
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"initWithTarget:action:", &InitWithTarget>(),
        objc::MethodNamed<"init", &Init>(),
        objc::MethodNamed<"addTarget:action:", &AddTarget>(),
        objc::MethodNamed<"removeTarget:action:", &RemoveTarget>(),
        objc::MethodNamed<"state", &State>(),
        objc::MethodNamed<"setState:", &SetState>(),
        objc::MethodNamed<"view", &View>(),
        objc::MethodNamed<"delegate", &Delegate>(),
        objc::MethodNamed<"setDelegate:", &SetDelegate>(),
        objc::MethodNamed<"isEnabled", &IsEnabled>(),
        objc::MethodNamed<"setEnabled:", &SetEnabled>(),
        objc::MethodNamed<"cancelsTouchesInView", &GetFlag<&S::cancelsTouchesInView>>(),
        objc::MethodNamed<"setCancelsTouchesInView:", &SetFlag<&S::cancelsTouchesInView>>(),
        objc::MethodNamed<"locationInView:", &Location>(),
        objc::MethodNamed<"locationOfTouch:inView:", &LocationOfTouch>(),
        objc::MethodNamed<"numberOfTouches", &NumberOfTouches>(),
        objc::MethodNamed<"canPreventGestureRecognizer:", &AlwaysYes>(),
        objc::MethodNamed<"canBePreventedByGestureRecognizer:", &AlwaysYes>(),
        objc::MethodNamed<"touchesBegan:withEvent:", &IgnoreTouches>(),
        objc::MethodNamed<"touchesMoved:withEvent:", &IgnoreTouches>(),
        objc::MethodNamed<"touchesEnded:withEvent:", &IgnoreTouches>(),
        objc::MethodNamed<"touchesCancelled:withEvent:", &IgnoreTouches>(),
        objc::MethodNamed<"ignoreTouch:forEvent:", &IgnoreTouch>(),
        objc::MethodNamed<"reset", &Reset>(),
    };
    RegisterClassWithState<RecognizerState>("UIGestureRecognizer", "NSObject", methods);
}

} // namespace sim
