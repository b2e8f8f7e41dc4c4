#include "uikit/presentation_controller.hpp"

#include "apple/uikit/gesture_recognizer.hpp"
#include "uikit/animation.hpp"
#include "uikit/classes.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/presentation.hpp"
#include "uikit/view_controller.hpp"

#include <algorithm>

namespace sim {
namespace {

using ui::ViewController;

/// A sheet goes when it is let go of below this part of its height, or when it is flung faster than this (points a
/// second).
constexpr double kFarEnough = 0.5;
constexpr double kFastEnough = 1000;
/// How much of the finger's way a sheet follows that may not go.
constexpr double kReluctance = 0.25;
constexpr double kReturnTime = 0.3; // seconds

enum class Swipe { kNone, kTakesAway, kIsRefused };

struct PresentationControllerState {
    ViewController presented; // not owned: it owns this one
    WeakObject delegate;
    objc::Ref<ui::PanGestureRecognizer> recognizer; // while a sheet is presented
    Swipe swipe = Swipe::kNone;
    cg::Point start; // the middle of the sheet before the swipe
};

PresentationControllerState &StateOfController(PresentationController self) {
    return StateOf<PresentationControllerState>(self);
}

/// Sends the delegate a message that it may leave unimplemented; `otherwise` stands for its answer then.
template <objc::FixedString Name, class R> R AskDelegate(PresentationController self, R otherwise) {
    const objc::Ref<ns::Object> delegate = StateOfController(self).delegate.Lock();
    return delegate->respondsToSelector(objc::Selector<Name>()) ? objc::Send<Name, R>(delegate.get(), self) : otherwise;
}

template <objc::FixedString Name> void TellDelegate(PresentationController self) {
    const objc::Ref<ns::Object> delegate = StateOfController(self).delegate.Lock();
    if (delegate->respondsToSelector(objc::Selector<Name>())) {
        objc::Send<Name, void>(delegate.get(), self);
    }
}

/// What becomes of a drag that has just been recognised: only one downwards is a swipe.
Swipe Begin(PresentationController self, double way) {
    const auto &controller = StateOf<ControllerState>(StateOfController(self).presented);
    if (way <= 0 || controller.isBeingDismissed || controller.presented) {
        return Swipe::kNone;
    }
    if (controller.modalInPresentation || !AskDelegate<"presentationControllerShouldDismiss:">(self, true)) {
        return Swipe::kIsRefused;
    }
    TellDelegate<"presentationControllerWillDismiss:">(self);
    BeginDismissal(StateOfController(self).presented, true);
    return Swipe::kTakesAway;
}

void End(PresentationController self, bool goes) {
    PresentationControllerState &state = StateOfController(self);
    const Swipe swipe = std::exchange(state.swipe, Swipe::kNone);
    if (swipe == Swipe::kTakesAway && goes) {
        MoveAway(state.presented, [keep = objc::Ref<PresentationController>(self)] {
            TellDelegate<"presentationControllerDidDismiss:">(keep);
        });
        return;
    }
    const objc::Ref<ui::View> sheet = state.presented.view();
    Animate({.duration = kReturnTime}, [&] { sheet->setCenter(state.start); }, {});
    if (swipe == Swipe::kTakesAway) {
        CancelDismissal(state.presented);
    } else {
        TellDelegate<"presentationControllerDidAttemptToDismiss:">(self);
    }
}

/// The sheet follows the finger downwards.
void Swiped(PresentationController self, ui::PanGestureRecognizer pan) {
    const objc::Ref<PresentationController> keep = self;
    PresentationControllerState &state = StateOfController(self);
    const ui::View sheet = state.presented.view();
    const ui::View space = sheet.superview();
    const double way = std::max(pan.translationInView(space).y, 0.0);
    if (pan.state() == UIGestureRecognizerStateBegan) {
        state.start = sheet.center();
        state.swipe = Begin(self, way);
    }
    if (state.swipe == Swipe::kNone) {
        return;
    }
    sheet.setCenter({state.start.x, state.start.y + way * (state.swipe == Swipe::kIsRefused ? kReluctance : 1)});
    if (IsOver(pan.state())) {
        const double speed = objc::Send<"velocityInView:", cg::Point>(pan, space).y;
        const bool wanted = way > sheet.bounds().size.height * kFarEnough || speed > kFastEnough;
        End(self, wanted && pan.state() == UIGestureRecognizerStateEnded);
    }
}

} // namespace

void DefinePresentationController() {
    auto controller = Class<PresentationControllerState>(PresentationController::kClassName, "NSObject");
    controller.Property<"delegate", &PresentationControllerState::delegate>();
    controller.ReadOnly<"presentedViewController", &PresentationControllerState::presented>();
    controller.Method<"presentingViewController">(
        [](const PresentationControllerState &state) { return StateOf<ControllerState>(state.presented).presenting; });
    controller.Method<"presentedView">([](const PresentationControllerState &state) { return state.presented.view(); });
    controller.Method<"presentationStyle">([](const PresentationControllerState &state) {
        return StateOf<ControllerState>(state.presented).presentationStyle;
    });
    controller.Method<"_swiped:", &Swiped>();
}

objc::Ref<PresentationController> MakePresentationController(ViewController presented) {
    auto made = ns::New<PresentationController>();
    StateOfController(made).presented = presented;
    return made;
}

void WatchForSwipes(PresentationController controller) {
    PresentationControllerState &state = StateOfController(controller);
    state.recognizer = objc::Ref<ui::PanGestureRecognizer>::Adopt(objc::As<ui::PanGestureRecognizer>(
        ns::Alloc<ui::PanGestureRecognizer>().initWithTarget(controller, objc::Selector<"_swiped:">())));
    state.presented.view().addGestureRecognizer(state.recognizer);
}

void ForgetSwipes(PresentationController controller) {
    PresentationControllerState &state = StateOfController(controller);
    if (state.recognizer) {
        objc::Send<"removeGestureRecognizer:", void>(state.presented.view(), state.recognizer.get());
        state.recognizer = nullptr;
    }
}

} // namespace sim
