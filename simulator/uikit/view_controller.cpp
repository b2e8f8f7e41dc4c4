#include "uikit/view_controller.hpp"

#include "apple/foundation/string.hpp"
#include "runtime/block_function.hpp"
#include "runtime/clock.hpp"
#include "runtime/native_class.hpp"
#include "uikit/animation.hpp"
#include "uikit/application.hpp"
#include "uikit/responder.hpp"
#include "uikit/target_action.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

namespace sim {
namespace {

using ui::ViewController;

/// UIModalPresentationStyle.
constexpr long kPresentAutomatic = -2;
constexpr long kPresentPageSheet = 1;
constexpr long kPresentFormSheet = 2;
/// UIModalTransitionStyle.
constexpr long kCoverVertical = 0;

/// Seconds that a presented view takes to come or go: moving, or fading as alerts do.
constexpr double kMoveTime = 0.4;
constexpr double kFadeTime = 0.25;
/// Points of the presenter that a sheet leaves in sight above it.
constexpr double kSheetTop = 57;

struct ControllerState {
    objc::Ref<ui::View> view;
    objc::Ref<ns::String> title;
    objc::Ref<ViewController> presented;
    ViewController presenting; // not owned: it owns this one
    long presentationStyle = kPresentAutomatic;
    long transitionStyle = kCoverVertical;
    bool isBeingDismissed = false;
    WeakObject editedBefore; // the first responder that its coming took the keyboard from
};

ControllerState &StateOfController(ViewController self) {
    return StateOf<ControllerState>(self);
}

void SetView(ViewController self, objc::SEL, ui::View view) {
    ControllerState &state = StateOfController(self);
    if (state.view) {
        ViewStateOf(state.view).controller = nullptr;
    }
    state.view = view;
    if (view) {
        ViewStateOf(view).controller = self;
    }
}

void Dealloc(ViewController self, objc::SEL selector) {
    SetView(self, nullptr, nullptr);
    if (const ViewController presented = StateOfController(self).presented) {
        StateOfController(presented).presenting = nullptr;
    }
    detail::Dealloc<ControllerState>(self.pointer, selector);
}

void LoadView(ViewController self, objc::SEL) {
    const auto view = objc::Ref<ui::View>::Adopt(ns::Alloc<ui::View>().initWithFrame({{}, ScreenSize()}));
    objc::Send<"setView:", void>(self, view.get());
}

void LoadViewIfNeeded(ViewController self, objc::SEL) {
    if (!StateOfController(self).view) {
        objc::Send<"loadView", void>(self);
        objc::Send<"viewDidLoad", void>(self);
    }
}

ui::View View(ViewController self, objc::SEL selector) {
    LoadViewIfNeeded(self, selector);
    return StateOfController(self).view;
}

ui::View ViewIfLoaded(ViewController self, objc::SEL) {
    return StateOfController(self).view;
}

bool IsViewLoaded(ViewController self, objc::SEL) {
    return static_cast<bool>(StateOfController(self).view);
}

void Ignore(ViewController, objc::SEL) {}
void IgnoreAppearance(ViewController, objc::SEL, bool) {}

ns::String Title(ViewController self, objc::SEL) {
    return StateOfController(self).title;
}

void SetTitle(ViewController self, objc::SEL, ns::String title) {
    StateOfController(self).title = objc::Ref<ns::String>::Adopt(objc::Send<"copy", ns::String>(title));
}

template <long ControllerState::*Member> long Get(ViewController self, objc::SEL) {
    return StateOfController(self).*Member;
}

template <long ControllerState::*Member> void Set(ViewController self, objc::SEL, long value) {
    StateOfController(self).*Member = value;
}

ViewController PresentedViewController(ViewController self, objc::SEL) {
    return StateOfController(self).presented;
}

ViewController PresentingViewController(ViewController self, objc::SEL) {
    return StateOfController(self).presenting;
}

ui::Responder NextResponder(ViewController self, objc::SEL) {
    const ui::View view = StateOfController(self).view;
    return view ? ViewStateOf(view).superview : ui::View{};
}

// Presentation. The presented view lies in the presenter's window, in front of all that is there.

cg::Rect PresentedFrame(ViewController controller, ui::Window window) {
    const cg::Rect whole = ViewStateOf(window).model.bounds;
    const long style = StateOfController(controller).presentationStyle;
    const bool isSheet = style == kPresentAutomatic || style == kPresentPageSheet || style == kPresentFormSheet;
    const double top = isSheet ? kSheetTop : 0;
    return {{whole.origin.x, whole.origin.y + top}, {whole.size.width, whole.size.height - top}};
}

double TransitionTime(ViewController controller) {
    return StateOfController(controller).transitionStyle == kCoverVertical ? kMoveTime : kFadeTime;
}

/// Puts the view where its coming starts and its going ends: below the window, or in place but clear.
void Conceal(ViewController controller, ui::Window window) {
    const ui::View view = controller.view();
    if (StateOfController(controller).transitionStyle == kCoverVertical) {
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
    return isView && IsDescendant(ui::View{first.pointer}, ancestor) ? ui::View{first.pointer} : ui::View{};
}

/// The keyboard goes while something is presented, and comes back to the view that had it.
void PutKeyboardAside(ViewController controller, ui::Window window) {
    if (const ui::View first = FirstResponderIn(window)) {
        StateOfController(controller).editedBefore = WeakObject(first);
        objc::Send<"resignFirstResponder", bool>(ui::Responder{first});
    }
}

void GiveKeyboardBack(ViewController presenter, ViewController controller) {
    const objc::Ref<ns::Object> before = std::exchange(StateOfController(controller).editedBefore, {}).Lock();
    if (before && !FirstResponder() && !StateOfController(presenter).isBeingDismissed &&
        WindowOf(ui::View{before.get().pointer})) {
        ui::Responder{before.get().pointer}.becomeFirstResponder();
    }
}

bool MayPresent(ViewController presenter, ViewController controller) {
    const ControllerState &state = StateOfController(presenter);
    return controller && WindowOf(presenter.view()) && !state.presented && !state.isBeingDismissed &&
           !StateOfController(controller).presenting;
}

/// As on the phone, a presenter that is out of sight, on its way out or presenting already presents nothing, and the
/// completion is not called.
void Present(ViewController self, objc::SEL, ViewController controller, bool animated, objc::Block<void()> completion) {
    if (!MayPresent(self, controller)) {
        return;
    }
    const ui::Window window = WindowOf(self.view());
    StateOfController(self).presented = controller;
    StateOfController(controller).presenting = self;
    const ui::View view = controller.view();
    view.setFrame(PresentedFrame(controller, window));
    PutKeyboardAside(controller, window);
    objc::Send<"viewWillAppear:", void>(controller, animated);
    window.addSubview(view);
    LayoutIfNeeded(view);
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
    StateOfController(controller).presenting = nullptr;
    StateOfController(controller).isBeingDismissed = false;
    objc::Send<"viewDidDisappear:", void>(controller, animated);
    StateOfController(presenter).presented = nullptr;
    GiveKeyboardBack(presenter, controller);
}

void Dismiss(ViewController self, objc::SEL, bool animated, objc::Block<void()> completion) {
    const objc::Ref<ViewController> controller = StateOfController(self).presented;
    if (!controller) {
        // A presented controller that is told to go asks the one that presented it.
        if (const ViewController presenting = StateOfController(self).presenting) {
            objc::Send<"dismissViewControllerAnimated:completion:", void>(presenting, animated, completion);
        }
        return;
    }
    if (std::exchange(StateOfController(controller).isBeingDismissed, true)) {
        return;
    }
    // What it presented itself goes with it, at once.
    if (StateOfController(controller).presented) {
        objc::Send<"dismissViewControllerAnimated:completion:", void>(controller.get(), false, objc::Block<void()>{});
    }
    if (const ui::View first = FirstResponderIn(controller->view())) {
        objc::Send<"resignFirstResponder", bool>(ui::Responder{first});
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

bool IsBeingDismissed(ViewController self, objc::SEL) {
    return StateOfController(self).isBeingDismissed;
}

} // namespace

void SetRootAppears(ViewController controller, bool appears) {
    if (appears) {
        objc::Send<"viewWillAppear:", void>(controller, false);
        objc::Send<"viewDidAppear:", void>(controller, false);
    } else {
        objc::Send<"viewWillDisappear:", void>(controller, false);
        objc::Send<"viewDidDisappear:", void>(controller, false);
    }
}

void RegisterViewController() {
    using S = ControllerState;
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"dealloc", &Dealloc>(),
        objc::MethodNamed<"view", &View>(),
        objc::MethodNamed<"setView:", &SetView>(),
        objc::MethodNamed<"viewIfLoaded", &ViewIfLoaded>(),
        objc::MethodNamed<"isViewLoaded", &IsViewLoaded>(),
        objc::MethodNamed<"loadView", &LoadView>(),
        objc::MethodNamed<"loadViewIfNeeded", &LoadViewIfNeeded>(),
        objc::MethodNamed<"viewDidLoad", &Ignore>(),
        objc::MethodNamed<"viewWillAppear:", &IgnoreAppearance>(),
        objc::MethodNamed<"viewDidAppear:", &IgnoreAppearance>(),
        objc::MethodNamed<"viewWillDisappear:", &IgnoreAppearance>(),
        objc::MethodNamed<"viewDidDisappear:", &IgnoreAppearance>(),
        objc::MethodNamed<"viewWillLayoutSubviews", &Ignore>(),
        objc::MethodNamed<"viewDidLayoutSubviews", &Ignore>(),
        objc::MethodNamed<"title", &Title>(),
        objc::MethodNamed<"setTitle:", &SetTitle>(),
        objc::MethodNamed<"modalPresentationStyle", &Get<&S::presentationStyle>>(),
        objc::MethodNamed<"setModalPresentationStyle:", &Set<&S::presentationStyle>>(),
        objc::MethodNamed<"modalTransitionStyle", &Get<&S::transitionStyle>>(),
        objc::MethodNamed<"setModalTransitionStyle:", &Set<&S::transitionStyle>>(),
        objc::MethodNamed<"presentedViewController", &PresentedViewController>(),
        objc::MethodNamed<"presentingViewController", &PresentingViewController>(),
        objc::MethodNamed<"isBeingDismissed", &IsBeingDismissed>(),
        objc::MethodNamed<"nextResponder", &NextResponder>(),
        objc::MethodNamed<"presentViewController:animated:completion:", &Present>(),
        objc::MethodNamed<"dismissViewControllerAnimated:completion:", &Dismiss>(),
    };
    RegisterClassWithState<ControllerState>("UIViewController", "UIResponder", methods);
}

} // namespace sim
