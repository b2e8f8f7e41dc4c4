// UIViewController: modal presentation. The presented view lies in the presenter's window, in front of all that is
// there.

#include "runtime/block_function.hpp"
#include "runtime/clock.hpp"
#include "uikit/animation.hpp"
#include "uikit/orientation.hpp"
#include "uikit/responder.hpp"
#include "uikit/scene_state.hpp"
#include "uikit/view.hpp"
#include "uikit/view_controller.hpp"

namespace sim {
namespace {

using ui::ViewController;

/// How long (seconds) a presented view takes to come or go: by moving, or by fading as alerts do.
constexpr double kMoveTime = 0.4;
constexpr double kFadeTime = 0.25;
/// The height (points) that stays free above a sheet; in landscape a sheet covers the window.
constexpr double kSheetTop = 57;

cg::Rect PresentedFrame(ViewController controller, ui::Window window) {
    const cg::Rect whole = ViewStateOf(window).model.bounds;
    const UIModalPresentationStyle style = StateOf<ControllerState>(controller).presentationStyle;
    const bool isSheet = style == UIModalPresentationAutomatic || style == UIModalPresentationPageSheet ||
                         style == UIModalPresentationFormSheet;
    const double top = isSheet && !IsLandscape() ? kSheetTop : 0;
    return {{whole.origin.x, whole.origin.y + top}, {whole.size.width, whole.size.height - top}};
}

double TransitionTime(ViewController controller) {
    return StateOf<ControllerState>(controller).transitionStyle == UIModalTransitionStyleCoverVertical ? kMoveTime
                                                                                                       : kFadeTime;
}

/// Puts the view where it starts to come and ends to go: below the window, or in place with alpha 0.
void Conceal(ViewController controller, ui::Window window) {
    const ui::View view = controller.view();
    if (StateOf<ControllerState>(controller).transitionStyle == UIModalTransitionStyleCoverVertical) {
        const ViewValues &values = ViewStateOf(view).model;
        view.setCenter({values.center.x, values.center.y + ViewStateOf(window).model.bounds.size.height});
    } else {
        view.setAlpha(0);
    }
}

/// The view that is first responder and lies in (or is) the given one; nil when there is none.
ui::View FirstResponderIn(ui::View ancestor) {
    const ui::Responder first = FirstResponder();
    const bool isView = first && first.isKindOfClass(objc::ClassOf<ui::View>());
    const auto view = isView ? objc::As<ui::View>(first) : ui::View{};
    return IsDescendant(view, ancestor) ? view : ui::View{};
}

/// The keyboard goes while something is presented, and comes back to the view that had it.
void PutKeyboardAside(ViewController controller, ui::Window window) {
    if (const ui::View first = FirstResponderIn(window)) {
        StateOf<ControllerState>(controller).editedBefore = WeakObject(first);
        first.resignFirstResponder();
    }
}

void GiveKeyboardBack(ViewController presenter, ViewController controller) {
    const objc::Ref<ns::Object> before = std::exchange(StateOf<ControllerState>(controller).editedBefore, {}).Lock();
    const auto view = objc::As<ui::View>(before);
    if (view && !FirstResponder() && !StateOf<ControllerState>(presenter).isBeingDismissed && WindowOf(view)) {
        view.becomeFirstResponder();
    }
}

bool MayPresent(ViewController presenter, ViewController controller) {
    const auto &state = StateOf<ControllerState>(presenter);
    return controller && WindowOf(presenter.view()) && !state.presented && !state.isBeingDismissed &&
           !StateOf<ControllerState>(controller).presenting;
}

/// As on the phone, a controller that is out of sight, being dismissed or presenting already presents nothing, and the
/// completion is not called.
void Present(ViewController self, ViewController controller, bool animated, objc::Block<void()> completion) {
    if (!MayPresent(self, controller)) {
        return;
    }
    const ui::Window window = WindowOf(self.view());
    StateOf<ControllerState>(self).presented = controller;
    StateOf<ControllerState>(controller).presenting = self;
    const ui::View view = controller.view();
    view.setFrame(PresentedFrame(controller, window));
    PutKeyboardAside(controller, window);
    objc::Send<"viewWillAppear:", void>(controller, animated);
    window.addSubview(view);
    LayoutIfNeeded(view);
    InterfaceFollowsController();
    const objc::Ref<ViewController> keep = controller;
    const auto shown = [keep, animated, then = FunctionOf(completion)](bool) {
        objc::Send<"viewDidAppear:", void>(keep.get(), animated);
        if (then) {
            then();
        }
    };
    if (!animated) {
        clock::Schedule(0, [shown] { shown(true); });
        return;
    }
    const ViewValues place = ViewStateOf(view).model;
    WithoutAnimation([&] { Conceal(controller, window); });
    Animate({.duration = TransitionTime(controller)}, [&] { SetViewValues(view, place); }, shown);
}

void TakeAway(ViewController presenter, ViewController controller, bool animated) {
    controller.view().removeFromSuperview();
    StateOf<ControllerState>(controller).presenting = nullptr;
    StateOf<ControllerState>(controller).isBeingDismissed = false;
    objc::Send<"viewDidDisappear:", void>(controller, animated);
    StateOf<ControllerState>(presenter).presented = nullptr;
    InterfaceFollowsController();
    GiveKeyboardBack(presenter, controller);
}

void Dismiss(ViewController self, bool animated, objc::Block<void()> completion) {
    const objc::Ref<ViewController> controller = StateOf<ControllerState>(self).presented;
    if (!controller) {
        // A presented controller that is told to dismiss passes it on to the one that presented it.
        StateOf<ControllerState>(self).presenting.dismissViewControllerAnimated(animated, completion);
        return;
    }
    if (std::exchange(StateOf<ControllerState>(controller).isBeingDismissed, true)) {
        return;
    }
    // What it presented itself goes with it, at once.
    if (StateOf<ControllerState>(controller).presented) {
        controller->dismissViewControllerAnimated(false, {});
    }
    if (const ui::View first = FirstResponderIn(controller->view())) {
        first.resignFirstResponder();
    }
    objc::Send<"viewWillDisappear:", void>(controller.get(), animated);
    const auto then = FunctionOf(completion);
    const ui::Window window = WindowOf(controller->view());
    if (!animated || !window) {
        TakeAway(self, controller, animated);
        clock::Schedule(0, then ? then : [] {});
        return;
    }
    const ViewValues place = ViewStateOf(controller->view()).model;
    Animate(
        {.duration = TransitionTime(controller)}, [&] { Conceal(controller, window); },
        [presenter = objc::Ref<ViewController>(self), controller, place, then](bool) {
            SetViewValues(controller->view(), place); // for the next time that it is presented
            TakeAway(presenter, controller, true);
            if (then) {
                then();
            }
        });
}

} // namespace

void DefinePresentation(Class<ControllerState> &controller) {
    controller.Property<"modalPresentationStyle", &ControllerState::presentationStyle>();
    controller.Property<"modalTransitionStyle", &ControllerState::transitionStyle>();
    controller.ReadOnly<"presentedViewController", &ControllerState::presented>();
    controller.ReadOnly<"presentingViewController", &ControllerState::presenting>();
    controller.ReadOnly<"isBeingDismissed", &ControllerState::isBeingDismissed>();
    controller.Method<"presentViewController:animated:completion:", &Present>();
    controller.Method<"dismissViewControllerAnimated:completion:", &Dismiss>();
}

void ResizePresented(ui::Window window) {
    for (ViewController at = WindowStateOf(window).root; at; at = StateOf<ControllerState>(at).presented) {
        if (const ViewController presented = StateOf<ControllerState>(at).presented) {
            presented.view().setFrame(PresentedFrame(presented, window));
        }
    }
}

} // namespace sim
