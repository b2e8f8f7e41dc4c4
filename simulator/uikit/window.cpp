#include "uikit/window.hpp"

#include "runtime/native_class.hpp"
#include "uikit/application.hpp"
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
    static ui::Window window; // not owned: a dying window gives the status up
    return window;
}

bool IsVisible(ui::Window window) {
    return !ViewStateOf(window).hidden;
}

/// What the key window of the window's scene (of the application, without a scene) is.
ui::Window KeyAmong(ui::WindowScene scene) {
    return scene ? SceneStateOf(scene).keyWindow : ApplicationKey();
}

/// The root controller's view fills the window, behind all else in it.
void ShowRoot(ui::Window window) {
    WindowState &state = WindowStateOf(window);
    if (!state.root || state.rootIsShown || !IsVisible(window)) {
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

/// A hidden or dying key window hands the status to the window of its scene that had it before, if that is visible.
void PassKeyOn(ui::Window window) {
    if (!(KeyAmong(WindowStateOf(window).scene) == window)) {
        return;
    }
    ui::Window heir;
    for (const ui::Window other : WindowsOf(WindowStateOf(window).scene)) {
        const bool fit = !(other == window) && IsVisible(other) && WindowStateOf(other).becameKeyOrder > 0;
        if (fit && (!heir || WindowStateOf(heir).becameKeyOrder < WindowStateOf(other).becameKeyOrder)) {
            heir = other;
        }
    }
    SetKeyWindow(WindowStateOf(window).scene, heir);
}

ui::Window InitWithFrame(ui::Window self, objc::SEL, cg::Rect frame) {
    const ui::Window window{objc::SendSuper<"initWithFrame:", ui::View>(ui::View{self.pointer}, frame).pointer};
    if (!window) {
        return window;
    }
    ViewStateOf(window).hidden = true; // until it is made visible
    AllWindows().push_back(window);
    // A window made without naming a scene joins the application's first one.
    if (const std::vector<ui::WindowScene> scenes = ConnectedScenes(); !scenes.empty()) {
        WindowStateOf(window).scene = scenes.front();
    }
    return window;
}

ui::Window InitWithWindowScene(ui::Window self, objc::SEL, ui::WindowScene scene) {
    const ui::Window window{self.initWithFrame({{}, ScreenSize()}).pointer};
    if (window) {
        WindowStateOf(window).scene = scene;
    }
    return window;
}

void Dealloc(ui::Window self, objc::SEL selector) {
    std::erase(AllWindows(), self);
    PassKeyOn(self);
    detail::Dealloc<WindowState>(self.pointer, selector);
}

double WindowLevel(ui::Window self, objc::SEL) {
    return WindowStateOf(self).level;
}

void SetWindowLevel(ui::Window self, objc::SEL, double level) {
    WindowStateOf(self).level = level;
}

ui::WindowScene WindowScene(ui::Window self, objc::SEL) {
    return WindowStateOf(self).scene;
}

void SetWindowScene(ui::Window self, objc::SEL, ui::WindowScene scene) {
    if (!(WindowStateOf(self).scene == scene)) {
        PassKeyOn(self);
        WindowStateOf(self).scene = scene;
    }
}

ui::Screen Screen(ui::Window, objc::SEL) {
    return MainScreen();
}

ui::ViewController RootViewController(ui::Window self, objc::SEL) {
    return WindowStateOf(self).root;
}

void SetRootViewController(ui::Window self, objc::SEL, ui::ViewController controller) {
    if (!(WindowStateOf(self).root.get() == controller)) {
        HideRoot(self);
        WindowStateOf(self).root = controller;
        ShowRoot(self);
    }
}

void SetHidden(ui::Window self, objc::SEL, bool hidden) {
    if (hidden == ViewStateOf(self).hidden) {
        return;
    }
    objc::SendSuper<"setHidden:", void>(ui::View{self.pointer}, hidden);
    if (hidden) {
        PassKeyOn(self);
        return;
    }
    static long shown = 0;
    WindowStateOf(self).shownOrder = ++shown;
    ShowRoot(self);
    SetNeedsLayout(self);
}

void SetFrame(ui::Window self, objc::SEL, cg::Rect frame) {
    objc::SendSuper<"setFrame:", void>(ui::View{self.pointer}, frame);
    ResizeRoot(self);
}

void SetBounds(ui::Window self, objc::SEL, cg::Rect bounds) {
    objc::SendSuper<"setBounds:", void>(ui::View{self.pointer}, bounds);
    ResizeRoot(self);
}

bool IsKeyWindow(ui::Window self, objc::SEL) {
    return KeyAmong(WindowStateOf(self).scene) == self;
}

void MakeKeyWindow(ui::Window self, objc::SEL) {
    SetKeyWindow(WindowStateOf(self).scene, self);
}

void MakeKeyAndVisible(ui::Window self, objc::SEL) {
    self.setHidden(false);
    self.makeKeyWindow();
}

bool CanBecomeKeyWindow(ui::Window, objc::SEL) {
    return true;
}

void Ignore(ui::Window, objc::SEL) {}

ui::Responder NextResponder(ui::Window self, objc::SEL) {
    const ui::WindowScene scene = WindowStateOf(self).scene;
    return scene ? ui::Responder{scene.pointer} : ui::Application::sharedApplication();
}

void SendEvent(ui::Window self, objc::SEL, ui::Event event) {
    DeliverEvent(self, event);
}

} // namespace

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
    static long order = 0;
    const ui::Window old = KeyAmong(scene);
    if (window && !objc::Send<"canBecomeKeyWindow", bool>(window)) {
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
        WindowStateOf(window).becameKeyOrder = ++order;
        objc::Send<"becomeKeyWindow", void>(window);
    }
}

std::vector<ui::Window> WindowsOf(ui::WindowScene scene) {
    std::vector<ui::Window> windows;
    for (const ui::Window window : AllWindows()) {
        if (!scene || WindowStateOf(window).scene == scene) {
            windows.push_back(window);
        }
    }
    // Windows never shown keep the order of their making, which the list has them in.
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
    std::erase_if(windows, [](ui::Window window) { return !IsVisible(window); });
    std::ranges::reverse(windows);
    return windows;
}

void LayoutWindows() {
    for (const ui::Window window : WindowsOf(nullptr)) {
        LayoutIfNeeded(window);
    }
}

void RegisterWindow() {
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"initWithFrame:", &InitWithFrame>(),
        objc::MethodNamed<"initWithWindowScene:", &InitWithWindowScene>(),
        objc::MethodNamed<"dealloc", &Dealloc>(),
        objc::MethodNamed<"windowLevel", &WindowLevel>(),
        objc::MethodNamed<"setWindowLevel:", &SetWindowLevel>(),
        objc::MethodNamed<"windowScene", &WindowScene>(),
        objc::MethodNamed<"setWindowScene:", &SetWindowScene>(),
        objc::MethodNamed<"screen", &Screen>(),
        objc::MethodNamed<"rootViewController", &RootViewController>(),
        objc::MethodNamed<"setRootViewController:", &SetRootViewController>(),
        objc::MethodNamed<"setHidden:", &SetHidden>(),
        objc::MethodNamed<"setFrame:", &SetFrame>(),
        objc::MethodNamed<"setBounds:", &SetBounds>(),
        objc::MethodNamed<"isKeyWindow", &IsKeyWindow>(),
        objc::MethodNamed<"makeKeyWindow", &MakeKeyWindow>(),
        objc::MethodNamed<"makeKeyAndVisible", &MakeKeyAndVisible>(),
        objc::MethodNamed<"canBecomeKeyWindow", &CanBecomeKeyWindow>(),
        objc::MethodNamed<"becomeKeyWindow", &Ignore>(),
        objc::MethodNamed<"resignKeyWindow", &Ignore>(),
        objc::MethodNamed<"nextResponder", &NextResponder>(),
        objc::MethodNamed<"sendEvent:", &SendEvent>(),
    };
    RegisterClassWithState<WindowState>("UIWindow", "UIView", methods);
}

} // namespace sim
