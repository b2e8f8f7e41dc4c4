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
    WeakObject presented; // it owns this one
    WeakObject delegate;
    objc::Ref<ui::PanGestureRecognizer> recognizer; // while a sheet is presented
    Swipe swipe = Swipe::kNone;
    cg::Point start; // the middle of the sheet before the swipe
};

PresentationControllerState &StateOfController(PresentationController self) {
    return StateOf<PresentationControllerState>(self);
}

/// What it presents, kept alive by the result; empty once that is gone.
objc::Ref<ViewController> PresentedBy(PresentationController self) {
    return {objc::As<ViewController>(StateOfController(self).presented.Lock().get())};
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
Swipe Begin(PresentationController self, ViewController presented, double way) {
    const auto &state = StateOf<ControllerState>(presented);
    if (way <= 0 || state.isBeingDismissed || state.presented) {
        return Swipe::kNone;
    }
    if (state.modalInPresentation || !AskDelegate<"presentationControllerShouldDismiss:">(self, true)) {
        return Swipe::kIsRefused;
    }
    TellDelegate<"presentationControllerWillDismiss:">(self);
    BeginDismissal(presented, true);
    return Swipe::kTakesAway;
}

void End(PresentationController self, ViewController presented, bool goes) {
    PresentationControllerState &state = StateOfController(self);
    const Swipe swipe = std::exchange(state.swipe, Swipe::kNone);
    if (swipe == Swipe::kTakesAway && goes) {
        MoveAway(presented, [keep = objc::Ref<PresentationController>(self)] {
            TellDelegate<"presentationControllerDidDismiss:">(keep);
        });
        return;
    }
    const objc::Ref<ui::View> sheet = presented.view();
    Animate({.duration = kReturnTime}, [&] { sheet->setCenter(state.start); }, {});
    if (swipe == Swipe::kTakesAway) {
        CancelDismissal(presented);
    } else {
        TellDelegate<"presentationControllerDidAttemptToDismiss:">(self);
    }
}

/// The sheet follows the finger downwards.
void Swiped(PresentationController self, ui::PanGestureRecognizer pan) {
    const objc::Ref<PresentationController> keep = self;
    const objc::Ref<ViewController> presented = PresentedBy(self);
    if (!presented) {
        return;
    }
    PresentationControllerState &state = StateOfController(self);
    const ui::View sheet = presented->view();
    const ui::View space = sheet.superview();
    const double way = std::max(pan.translationInView(space).y, 0.0);
    if (pan.state() == UIGestureRecognizerStateBegan) {
        state.start = sheet.center();
        state.swipe = Begin(self, presented, way);
    }
    if (state.swipe == Swipe::kNone) {
        return;
    }
    sheet.setCenter({state.start.x, state.start.y + way * (state.swipe == Swipe::kIsRefused ? kReluctance : 1)});
    if (IsOver(pan.state())) {
        const double speed = objc::Send<"velocityInView:", cg::Point>(pan, space).y;
        const bool wanted = way > sheet.bounds().size.height * kFarEnough || speed > kFastEnough;
        End(self, presented, wanted && pan.state() == UIGestureRecognizerStateEnded);
    }
}

} // namespace

void DefinePresentationController() {
    auto controller = Class<PresentationControllerState>(PresentationController::kClassName, "NSObject");
    controller.Property<"delegate", &PresentationControllerState::delegate>();
    controller.ReadOnly<"presentedViewController", &PresentationControllerState::presented>();
    controller.Method<"presentingViewController">([](PresentationController self) {
        return objc::Send<"presentingViewController", ViewController>(PresentedBy(self).get());
    });
    controller.Method<"presentedView">([](PresentationController self) { return PresentedBy(self)->view(); });
    controller.Method<"presentationStyle">([](PresentationController self) {
        return objc::Send<"modalPresentationStyle", UIModalPresentationStyle>(PresentedBy(self).get());
    });
    controller.Method<"_swiped:", &Swiped>();
}

objc::Ref<PresentationController> MakePresentationController(ViewController presented) {
    auto made = ns::New<PresentationController>();
    StateOfController(made).presented = WeakObject(presented);
    return made;
}

void WatchForSwipes(PresentationController controller) {
    PresentationControllerState &state = StateOfController(controller);
    state.recognizer = objc::Ref<ui::PanGestureRecognizer>::Adopt(objc::As<ui::PanGestureRecognizer>(
        ns::Alloc<ui::PanGestureRecognizer>().initWithTarget(controller, objc::Selector<"_swiped:">())));
    PresentedBy(controller)->view().addGestureRecognizer(state.recognizer);
}

void ForgetSwipes(PresentationController controller) {
    PresentationControllerState &state = StateOfController(controller);
    if (state.recognizer) {
        objc::Send<"removeGestureRecognizer:", void>(PresentedBy(controller)->view(), state.recognizer.get());
        state.recognizer = nullptr;
    }
}

} // namespace sim
