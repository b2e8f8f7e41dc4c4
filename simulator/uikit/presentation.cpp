#include "uikit/presentation.hpp"

#include "runtime/block_function.hpp"
#include "runtime/clock.hpp"
#include "runtime/variants.hpp"
#include "uikit/animation.hpp"
#include "uikit/color.hpp"
#include "uikit/orientation.hpp"
#include "uikit/presentation_controller.hpp"
#include "uikit/responder.hpp"
#include "uikit/scene_state.hpp"
#include "uikit/screen.hpp"
#include "uikit/view.hpp"
#include "uikit/view_controller.hpp"

#include <algorithm>
#include <cstdio>
#include <string>

namespace sim {
namespace {

using ui::ViewController;

/// How long (seconds) a presented view takes to come or go: by moving, or by fading as alerts do.
constexpr double kMoveTime = 0.4;
constexpr double kFadeTime = 0.25;
/// How far (points) below the status bar a sheet begins; in landscape it covers the window.
constexpr double kSheetTop = 10;
/// How much (points) of the window stays free on each side of what a sheet pushes back.
constexpr double kPushedMargin = 16;
constexpr double kLightDimming = 0.2;
constexpr double kDarkDimming = 0.48;

struct TransitionView : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "UITransitionView";
};

cg::Rect PresentedFrame(ViewController controller, ui::Window window) {
    const cg::Rect whole = ViewStateOf(window).model.bounds;
    const double top = IsSheet(controller) && !IsLandscape() ? ScreenSafeArea().top + kSheetTop : 0;
    return {{whole.origin.x, whole.origin.y + top}, {whole.size.width, whole.size.height - top}};
}

double TransitionTime(ViewController controller) {
    return StateOf<ControllerState>(controller).transitionStyle == UIModalTransitionStyleCoverVertical ? kMoveTime
                                                                                                       : kFadeTime;
}

/// Made at the first use, so that one can be given a delegate before the controller is presented.
PresentationController PresentationControllerOf(ViewController controller) {
    objc::Ref<PresentationController> &presentation = StateOf<ControllerState>(controller).presentation;
    if (!presentation) {
        presentation = MakePresentationController(controller);
    }
    return presentation;
}

/// Puts the view where it starts to come and ends to go: below the window, or in place with alpha 0.
void Conceal(ViewController controller) {
    const ui::View view = controller.view();
    if (StateOf<ControllerState>(controller).transitionStyle == UIModalTransitionStyleCoverVertical) {
        const ViewValues &values = ViewStateOf(view).model;
        const double height = StateOf<ControllerState>(controller).container->bounds().size.height;
        view.setCenter({values.center.x, values.center.y + height});
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

const char *NameOf(ViewController controller) {
    return class_getName(objc::object_getClass(controller.pointer));
}

/// Why the presenter may not present the controller; empty when it may.
std::string Objection(ViewController presenter, ViewController controller) {
    const auto &state = StateOf<ControllerState>(presenter);
    if (!WindowOf(presenter.view())) {
        return "whose view is in no window";
    }
    if (state.presented) {
        return std::string("which is already presenting ") + NameOf(state.presented);
    }
    if (state.isBeingDismissed) {
        return "which is being dismissed";
    }
    if (state.isBeingPresented && !Otherwise(Variant::kPresentationUnderWay)) {
        return "while its own presentation is under way";
    }
    return StateOf<ControllerState>(controller).presenting ? "although it is presented already" : "";
}

/// Puts the view into a container of its own, which keeps touches from what lies behind it.
void Contain(ViewController controller, ui::Window window) {
    const auto container = ui::MakeView<TransitionView>(ViewStateOf(window).model.bounds);
    container->addSubview(controller.view());
    StateOf<ControllerState>(controller).container = objc::Ref<ui::View>(container.get());
    window.addSubview(container);
}

/// What lies behind a sheet is dimmed while that is up.
void Dim(ViewController controller, bool dimmed) {
    if (IsSheet(controller)) {
        const double alpha = IsDarkAppearance() ? kDarkDimming : kLightDimming;
        StateOf<ControllerState>(controller)
            .container->setBackgroundColor(ui::Color::blackColor().colorWithAlphaComponent(dimmed ? alpha : 0));
    }
}

void CompletePresentation(ViewController controller, bool animated) {
    auto &state = StateOf<ControllerState>(controller);
    state.isBeingPresented = false;
    if (IsSheet(controller) && state.container) { // it may be gone again
        WatchForSwipes(PresentationControllerOf(controller));
    }
    objc::Send<"viewDidAppear:", void>(controller, animated);
}

/// A presentation that may not be is dropped with a remark, and its completion not called.
void Present(ViewController self, ViewController controller, bool animated, objc::Block<void()> completion) {
    if (!controller) {
        return;
    }
    if (const std::string objection = Objection(self, controller); !objection.empty()) {
        std::fflush(stdout); // the remark is to stand where it was made
        std::fprintf(stderr, "attempt to present %s on %s %s\n", NameOf(controller), NameOf(self), objection.c_str());
        return;
    }
    const ui::Window window = WindowOf(self.view());
    StateOf<ControllerState>(self).presented = controller;
    StateOf<ControllerState>(controller).presenting = self;
    StateOf<ControllerState>(controller).isBeingPresented = true;
    const ui::View view = controller.view();
    view.setFrame(PresentedFrame(controller, window));
    PutKeyboardAside(controller, window);
    objc::Send<"viewWillAppear:", void>(controller, animated);
    Contain(controller, window);
    LayoutIfNeeded(view);
    InterfaceFollowsController();
    const objc::Ref<ViewController> keep = controller;
    const auto shown = [keep, animated, then = FunctionOf(completion)](bool) {
        CompletePresentation(keep, animated);
        if (then) {
            then();
        }
    };
    if (!animated) {
        Dim(controller, true);
        clock::Schedule(0, [shown] { shown(true); });
        return;
    }
    const ViewValues place = ViewStateOf(view).model;
    WithoutAnimation([&] {
        Conceal(controller);
        Dim(controller, false);
    });
    Animate(
        {.duration = TransitionTime(controller)},
        [&] {
            SetViewValues(view, place);
            Dim(controller, true);
        },
        shown);
}

void TakeAway(ViewController controller, bool animated) {
    auto &state = StateOf<ControllerState>(controller);
    const objc::Ref<ViewController> presenter = state.presenting;
    ForgetSwipes(PresentationControllerOf(controller));
    state.presentation = nullptr; // the next presentation has one of its own
    std::exchange(state.container, nullptr)->removeFromSuperview();
    controller.view().removeFromSuperview();
    state.presenting = nullptr;
    state.isBeingPresented = false;
    state.isBeingDismissed = false;
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
    if (StateOf<ControllerState>(controller).isBeingDismissed) {
        return;
    }
    BeginDismissal(controller, animated);
    const auto then = FunctionOf(completion);
    if (animated && WindowOf(controller->view())) {
        MoveAway(controller, then);
    } else {
        TakeAway(controller, animated);
        clock::Schedule(0, then ? then : [] {});
    }
}

} // namespace

ControllerState::~ControllerState() {
    if (presented) {
        StateOf<ControllerState>(presented).presenting = nullptr;
    }
}

void DefinePresentation(Class<ControllerState> &controller) {
    Class(TransitionView::kClassName, "UIView");
    controller.Property<"modalPresentationStyle", &ControllerState::presentationStyle>();
    controller.Property<"modalTransitionStyle", &ControllerState::transitionStyle>();
    controller.ReadOnly<"presentedViewController", &ControllerState::presented>();
    controller.ReadOnly<"presentingViewController", &ControllerState::presenting>();
    controller.ReadOnly<"isBeingPresented", &ControllerState::isBeingPresented>();
    controller.ReadOnly<"isBeingDismissed", &ControllerState::isBeingDismissed>();
    controller.Property<"isModalInPresentation", &ControllerState::modalInPresentation>();
    controller.Method<"presentationController", &PresentationControllerOf>();
    controller.Method<"presentViewController:animated:completion:", &Present>();
    controller.Method<"dismissViewControllerAnimated:completion:", &Dismiss>();
}

bool IsSheet(ViewController controller) {
    const UIModalPresentationStyle style = StateOf<ControllerState>(controller).presentationStyle;
    return style == UIModalPresentationAutomatic || style == UIModalPresentationPageSheet ||
           style == UIModalPresentationFormSheet;
}

SheetPart SheetPartOf(ViewController controller) {
    const auto &state = StateOf<ControllerState>(controller);
    if (IsLandscape()) {
        return {};
    }
    const bool isSheet = state.presenting && IsSheet(controller);
    const ViewController sheet = state.presented;
    if (isSheet || !sheet || !IsSheet(sheet)) {
        return {.isSheet = isSheet};
    }
    const ui::Window window = WindowOf(controller.view());
    const ViewValues shown = PresentedValues(sheet.view());
    if (!window || !(shown.bounds.size.height > 0)) {
        return {};
    }
    const cg::Rect rest = PresentedFrame(sheet, window);
    if (!(rest.size.width > 2 * kPushedMargin)) {
        return {};
    }
    const double way = shown.center.y - rest.origin.y - rest.size.height / 2;
    const double up = std::clamp(1 - way / shown.bounds.size.height, 0.0, 1.0) * std::clamp(shown.alpha, 0.0, 1.0);
    return {
        .pushedBack = up, .scale = 1 - up * 2 * kPushedMargin / rest.size.width, .moved = up * ScreenSafeArea().top};
}

void BeginDismissal(ViewController controller, bool animated) {
    auto &state = StateOf<ControllerState>(controller);
    state.isBeingDismissed = true;
    // What it presented itself goes with it, at once.
    if (state.presented) {
        controller.dismissViewControllerAnimated(false, {});
    }
    if (const ui::View first = FirstResponderIn(controller.view())) {
        first.resignFirstResponder();
    }
    objc::Send<"viewWillDisappear:", void>(controller, animated);
}

void CancelDismissal(ViewController controller) {
    StateOf<ControllerState>(controller).isBeingDismissed = false;
    objc::Send<"viewWillAppear:", void>(controller, true);
    objc::Send<"viewDidAppear:", void>(controller, true);
}

void MoveAway(ViewController controller, std::function<void()> then) {
    const objc::Ref<ViewController> keep = controller;
    const ViewValues place = ViewStateOf(controller.view()).model;
    Animate(
        {.duration = TransitionTime(controller)},
        [&] {
            Conceal(controller);
            Dim(controller, false);
        },
        [keep, presenter = objc::Ref<ViewController>(StateOf<ControllerState>(controller).presenting), place,
         then = std::move(then)](bool) {
            SetViewValues(keep->view(), place); // for the next time that it is presented
            TakeAway(keep, true);
            if (then) {
                then();
            }
        });
}

void ResizePresented(ui::Window window) {
    for (ViewController at = WindowStateOf(window).root; at; at = StateOf<ControllerState>(at).presented) {
        if (const ViewController presented = StateOf<ControllerState>(at).presented) {
            StateOf<ControllerState>(presented).container->setFrame(window.bounds());
            presented.view().setFrame(PresentedFrame(presented, window));
        }
    }
}

} // namespace sim
