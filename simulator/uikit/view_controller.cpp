#include "uikit/view_controller.hpp"

#include "uikit/application.hpp"
#include "uikit/autoresizing.hpp"
#include "uikit/classes.hpp"
#include "uikit/orientation.hpp"
#include "uikit/status_bar.hpp"
#include "uikit/view_state.hpp"

namespace sim {
namespace {

using ui::ViewController;

void SetView(ViewController self, ui::View view) {
    auto &state = StateOf<ControllerState>(self);
    if (state.view) {
        ViewStateOf(state.view).controller = nullptr;
    }
    state.view = view;
    if (view) {
        ViewStateOf(view).controller = self;
    }
}

constexpr unsigned long kFlexibleSize = UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight;
constexpr unsigned long kAllButUpsideDown = 26; // UIInterfaceOrientationMaskAllButUpsideDown

void LoadView(ViewController self) {
    const auto view = ui::MakeView<ui::View>({{}, ScreenSize()});
    ViewStateOf(view).autoresizingMask = kFlexibleSize;
    objc::Send<"setView:", void>(self, view.get());
}

void LoadViewIfNeeded(ViewController self) {
    if (!StateOf<ControllerState>(self).view) {
        objc::Send<"loadView", void>(self);
        objc::Send<"viewDidLoad", void>(self);
    }
}

/// What subclasses override to hear of their view; UIViewController itself does nothing then.
void DefineNotices(Class<ControllerState> &controller) {
    controller.Method<"viewDidLoad">([](ViewController) {});
    controller.Method<"viewWillAppear:">([](ViewController, bool) {});
    controller.Method<"viewDidAppear:">([](ViewController, bool) {});
    controller.Method<"viewWillDisappear:">([](ViewController, bool) {});
    controller.Method<"viewDidDisappear:">([](ViewController, bool) {});
    controller.Method<"viewWillLayoutSubviews">([](ViewController) {});
    controller.Method<"viewDidLayoutSubviews">([](ViewController) {});
}

/// What the phone asks about turning the interface and about the status bar, with the answers of a plain controller.
void DefineWishes(Class<ControllerState> &controller) {
    controller.Method<"supportedInterfaceOrientations">([](ViewController) { return kAllButUpsideDown; });
    controller.Method<"shouldAutorotate">([](ViewController) { return true; });
    controller.ClassMethod<"attemptRotationToDeviceOrientation">([](ns::Object) { InterfaceFollowsController(); });
    controller.Method<"prefersStatusBarHidden">([](ViewController) { return false; });
    controller.Method<"preferredStatusBarStyle">([](ViewController) { return StatusBarStyle::kDefault; });
    controller.Method<"childViewControllerForStatusBarHidden">([](ViewController) { return ViewController{}; });
    controller.Method<"childViewControllerForStatusBarStyle">([](ViewController) { return ViewController{}; });
    controller.Property<"modalPresentationCapturesStatusBarAppearance", &ControllerState::capturesStatusBar>();
    controller.Method<"setNeedsStatusBarAppearanceUpdate">([](ViewController) {}); // asked anew for every picture
}

} // namespace

void DefineViewController() {
    auto controller = Class<ControllerState>("UIViewController", "UIResponder");
    controller.Dealloc([](ViewController self) {
        SetView(self, nullptr);
        if (const ViewController presented = StateOf<ControllerState>(self).presented) {
            StateOf<ControllerState>(presented).presenting = nullptr;
        }
    });
    controller.Method<"view">([](ViewController self) -> ui::View {
        LoadViewIfNeeded(self);
        return StateOf<ControllerState>(self).view;
    });
    controller.Method<"setView:", &SetView>();
    controller.ReadOnly<"viewIfLoaded", &ControllerState::view>();
    controller.Method<"isViewLoaded">([](const ControllerState &state) { return static_cast<bool>(state.view); });
    controller.Method<"loadView", &LoadView>();
    controller.Method<"loadViewIfNeeded", &LoadViewIfNeeded>();
    controller.Property<"title", &ControllerState::title>();
    controller.Method<"nextResponder">([](const ControllerState &state) -> ui::Responder {
        return state.view ? ViewStateOf(state.view).superview : ui::View{};
    });
    DefineNotices(controller);
    DefineWishes(controller);
    DefinePresentation(controller);
}

void SetRootAppears(ViewController controller, bool appears) {
    if (appears) {
        objc::Send<"viewWillAppear:", void>(controller, false);
        objc::Send<"viewDidAppear:", void>(controller, false);
    } else {
        objc::Send<"viewWillDisappear:", void>(controller, false);
        objc::Send<"viewDidDisappear:", void>(controller, false);
    }
}

} // namespace sim
