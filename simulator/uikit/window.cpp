// UIWindow.

#include "runtime/native_class.hpp"
#include "runtime/variants.hpp"
#include "uikit/application.hpp"
#include "uikit/classes.hpp"
#include "uikit/orientation.hpp"
#include "uikit/scene_state.hpp"
#include "uikit/screen.hpp"
#include "uikit/touch_delivery.hpp"
#include "uikit/view.hpp"
#include "uikit/view_controller.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <tuple>

extern "C" {
extern const double UIWindowLevelNormal;
extern const double UIWindowLevelStatusBar;
const double UIWindowLevelNormal = 0;
const double UIWindowLevelStatusBar = 1000;
const double UIWindowLevelAlert = 2000;
}

namespace sim {
namespace {

ui::Window &ApplicationKey() {
    static ui::Window window; // not owned: a window gives the status up when it goes
    return window;
}

bool CanBecomeKey(ui::Window window) {
    return objc::Send<"canBecomeKeyWindow", bool>(window);
}

/// The key window of a scene; without a scene, the application's.
ui::Window KeyAmong(ui::WindowScene scene) {
    return scene ? SceneStateOf(scene).keyWindow : ApplicationKey();
}

/// The root controller's view fills the window, behind all else in it.
void ShowRoot(ui::Window window) {
    WindowState &state = WindowStateOf(window);
    if (!state.root || state.rootIsShown || ViewStateOf(window).hidden) {
        return;
    }
    state.rootIsShown = true;
    const objc::Ref<ui::ViewController> root = state.root;
    root->view().setFrame(ViewStateOf(window).model.bounds);
    InsertSubview(window, root->view(), 0);
    SetRootAppears(root, true);
}

void HideRoot(ui::Window window) {
    WindowState &state = WindowStateOf(window);
    if (state.rootIsShown) {
        state.rootIsShown = false;
        const objc::Ref<ui::ViewController> root = state.root;
        root->view().removeFromSuperview();
        SetRootAppears(root, false);
    }
}

void ResizeRoot(ui::Window window) {
    const WindowState &state = WindowStateOf(window);
    if (state.rootIsShown) {
        state.root->view().setFrame(ViewStateOf(window).model.bounds);
    }
}

/// Who gets key status from a window that is hidden or goes: the top-most visible window of its scene below it, or,
/// where there is none, the top-most above it.
ui::Window HeirOf(ui::Window window) {
    std::vector<ui::Window> windows = WindowsOf(WindowStateOf(window).scene); // back to front
    std::ranges::rotate(windows, std::ranges::find(windows, window));         // those below it come last
    std::erase_if(windows,
                  [window](ui::Window other) { return other == window || !IsOnScreen(other) || !CanBecomeKey(other); });
    return windows.empty() ? ui::Window{} : windows.back();
}

void PassKeyOn(ui::Window window) {
    const ui::WindowScene scene = WindowStateOf(window).scene;
    if (KeyAmong(scene) == window) {
        SetKeyWindow(scene, HeirOf(window));
    }
}

ui::Window InitWithFrame(ui::View self, cg::Rect frame) {
    const auto window = objc::As<ui::Window>(objc::SendSuper<"initWithFrame:", ui::View>(self, frame));
    ViewStateOf(window).hidden = true; // until it is made visible
    AllWindows().push_back(window);
    // A window made without naming a scene joins the application's first one.
    if (const std::vector<ui::WindowScene> scenes = ConnectedScenes(); !scenes.empty()) {
        WindowStateOf(window).scene = scenes.front();
    }
    return window;
}

void SetHidden(ui::View self, bool hidden) {
    if (hidden == ViewStateOf(self).hidden) {
        return;
    }
    objc::SendSuper<"setHidden:", void>(self, hidden);
    const auto window = objc::As<ui::Window>(self);
    if (hidden) {
        if (!Otherwise(Variant::kHiddenKeyWindow)) {
            PassKeyOn(window);
        }
        InterfaceFollowsController();
        return;
    }
    static long shown = 0;
    WindowStateOf(window).shownOrder = ++shown;
    ShowRoot(window);
    SetNeedsLayout(window);
    InterfaceFollowsController();
}

void DefineKeyStatus(Class<WindowState> &window) {
    window.Method<"isKeyWindow">([](ui::Window self) { return KeyAmong(WindowStateOf(self).scene) == self; });
    window.Method<"makeKeyWindow", &MakeKey>();
    window.Method<"makeKeyAndVisible">([](ui::Window self) {
        self.setHidden(false);
        self.makeKeyWindow();
    });
    window.Method<"canBecomeKeyWindow">([](ui::Window) { return true; });
    window.Method<"becomeKeyWindow">([](ui::Window) {});
    window.Method<"resignKeyWindow">([](ui::Window) {});
}

} // namespace

void DefineWindow() {
    auto window = Class<WindowState>("UIWindow", "UIView");
    window.Method<"initWithFrame:", &InitWithFrame>();
    window.Method<"initWithWindowScene:">([](ui::Window self, ui::WindowScene scene) {
        const auto made = objc::As<ui::Window>(self.initWithFrame({{}, ScreenSize()}));
        WindowStateOf(made).scene = scene;
        return made;
    });
    window.Dealloc([](ui::Window self) {
        PassKeyOn(self);
        std::erase(AllWindows(), self);
    });
    window.Property<"windowLevel", &WindowState::level>();
    window.ReadOnly<"windowScene", &WindowState::scene>();
    window.Method<"setWindowScene:">([](ui::Window self, ui::WindowScene scene) {
        if (!(WindowStateOf(self).scene == scene)) {
            PassKeyOn(self);
            WindowStateOf(self).scene = scene;
            WindowStateOf(self).lostItsScene = !scene;
        }
    });
    window.Method<"screen">([](ui::Window) { return MainScreen(); });
    window.ReadOnly<"rootViewController", &WindowState::root>();
    window.Method<"setRootViewController:">([](ui::Window self, ui::ViewController controller) {
        if (!(WindowStateOf(self).root.get() == controller)) {
            HideRoot(self);
            WindowStateOf(self).root = controller;
            ShowRoot(self);
            InterfaceFollowsController();
        }
    });
    window.Method<"setHidden:", &SetHidden>();
    window.Method<"setFrame:">([](ui::View self, cg::Rect frame) {
        objc::SendSuper<"setFrame:", void>(self, frame);
        ResizeRoot(objc::As<ui::Window>(self));
    });
    window.Method<"setBounds:">([](ui::View self, cg::Rect bounds) {
        objc::SendSuper<"setBounds:", void>(self, bounds);
        ResizeRoot(objc::As<ui::Window>(self));
    });
    window.Method<"nextResponder">([](const WindowState &state) {
        return state.scene ? ui::Responder{state.scene} : ui::Application::sharedApplication();
    });
    window.Method<"sendEvent:", &DeliverEvent>();
    DefineKeyStatus(window);
}

WindowState &WindowStateOf(ui::Window window) {
    return StateOf<WindowState>(window);
}

std::vector<ui::Window> &AllWindows() {
    static std::vector<ui::Window> windows;
    return windows;
}

ui::Window ApplicationKeyWindow() {
    return ApplicationKey();
}

void SetKeyWindow(ui::WindowScene scene, ui::Window window) {
    const ui::Window old = KeyAmong(scene);
    if (window && !CanBecomeKey(window)) {
        return;
    }
    if (window || ApplicationKey() == old) {
        ApplicationKey() = window;
    }
    if (old == window) {
        return;
    }
    if (scene) {
        SceneStateOf(scene).keyWindow = window;
    }
    objc::Send<"resignKeyWindow", void>(old);
    if (window) {
        objc::Send<"becomeKeyWindow", void>(window);
    }
}

void MakeKey(ui::Window window) {
    if (window) {
        SetKeyWindow(WindowStateOf(window).scene, window);
    }
}

bool IsOnScreen(ui::Window window) {
    return !ViewStateOf(window).hidden && !WindowStateOf(window).lostItsScene;
}

std::vector<ui::Window> WindowsOf(ui::WindowScene scene) {
    std::vector<ui::Window> windows;
    for (const ui::Window window : AllWindows()) {
        if (!scene || WindowStateOf(window).scene == scene) {
            windows.push_back(window);
        }
    }
    // Windows that were never shown keep the order in which they were made.
    const auto rank = [](ui::Window window) {
        const WindowState &state = WindowStateOf(window);
        const auto made = std::ranges::find(AllWindows(), window) - AllWindows().begin();
        return std::tuple(state.level, state.shownOrder, made);
    };
    std::ranges::sort(windows, [&](ui::Window below, ui::Window above) { return rank(below) < rank(above); });
    return windows;
}

std::vector<ui::Window> WindowsFrontToBack() {
    std::vector<ui::Window> windows = WindowsOf(nullptr);
    std::erase_if(windows, [](ui::Window window) { return !IsOnScreen(window); });
    std::ranges::reverse(windows);
    return windows;
}

void LayoutWindows() {
    for (const ui::Window window : WindowsOf(nullptr)) {
        LayoutIfNeeded(window);
    }
}

} // namespace sim
