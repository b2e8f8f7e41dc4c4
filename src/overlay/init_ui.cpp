#include "overlay/init_ui.hpp"

#include "adapters/hosts.hpp"
#include "adapters/wechat/plugin_switch.hpp"
#include "apple/foundation/notifications.hpp"
#include "apple/foundation/user_defaults.hpp"
#include "diagnostics/debug_log.hpp"
#include "overlay/capture_button.hpp"
#include "overlay/danmu_window.hpp"
#include "overlay/float_button.hpp"
#include "overlay/float_place.hpp"
#include "overlay/panel.hpp"
#include "overlay/state.hpp"
#include "overlay/windows.hpp"

namespace corvel {
namespace {

/// Above the host's alerts.
constexpr double kLevelAboveAlerts = 100;

/// Builds the overlay window on the foreground scene; without such a scene nothing is built.
void BuildWindow() {
    const ui::WindowScene scene = FindForegroundScene();
    if (!scene) {
        return;
    }
    const auto window = objc::Ref<ui::Window>::Adopt(AllocateDanmuWindow().initWithWindowScene(scene));
    window->setFrame(scene.coordinateSpace().bounds());
    window->setWindowLevel(UIWindowLevelAlert + kLevelAboveAlerts);
    window->setBackgroundColor(ui::Color::clearColor());
    const auto controller = ns::New<ui::ViewController>();
    window->setRootViewController(controller);
    controller->view().setBackgroundColor(ui::Color::clearColor());
    // Showing a window makes it key, but the keyboard and the host's alerts belong to the host's.
    const objc::Ref<ui::Window> hostWindow = scene.keyWindow();
    window->makeKeyAndVisible();
    hostWindow->makeKeyWindow();
    Overlay().window = window;
    ObserveRotation();
}

/// Moves an overlay whose scene the system has taken away to the one in the foreground; without one it waits.
void FollowScene() {
    const ui::Window window = Overlay().window;
    if (window.windowScene()) {
        return;
    }
    if (const ui::WindowScene scene = FindForegroundScene()) {
        window.setWindowScene(scene);
        window.setFrame(scene.coordinateSpace().bounds());
        window.setHidden(false);
    }
}

/// Removes a view and drops the reference to it.
template <class T> void Remove(objc::Ref<T> &view) {
    view->removeFromSuperview();
    view = nullptr;
}

void TearDown() {
    OverlayState &overlay = Overlay();
    RemovePanels();
    Remove(overlay.captureButton);
    Remove(overlay.floatButton);
    overlay.window->setHidden(true);
    overlay.window = nullptr;
    overlay.built = false;
}

/// Runs InitUI when the switch is not what it was last. For every change of the user defaults.
void RefreshFinderSwitch() {
    const bool on = IsFinderSwitchOn();
    if (on != Overlay().lastFinderSwitch) {
        Overlay().lastFinderSwitch = on;
        InitUI();
    }
}

/// Follows WeChat's plugin switch from now on; once installed, the observer stays for good.
void ObserveFinderSwitch() {
    OverlayState &overlay = Overlay();
    if (overlay.finderObserverInstalled) {
        return;
    }
    overlay.finderObserverInstalled = true;
    overlay.lastFinderSwitch = IsFinderSwitchOn();
    ns::NotificationCenter::defaultCenter().addObserverForName(
        NSUserDefaultsDidChangeNotification, nullptr, ns::OperationQueue::mainQueue(),
        objc::MakeBlock<void(ns::Notification)>([](ns::Notification) { RefreshFinderSwitch(); }));
}

void Build() {
    OverlayState &overlay = Overlay();
    if (!overlay.window) {
        BuildWindow();
    }
    if (!overlay.window) {
        return; // the next DanmuServiceReady tries again
    }
    overlay.built = true;
    BuildFloatButton();
    RebuildCaptureButton();
    RaiseFloatButtons();
    DebugLog("[UI] Init complete platform=%@"_ns, PresentHost().name.get());
    if (DetectHostPlatform() == HostPlatform::kWeChat) {
        ObserveFinderSwitch();
    }
}

} // namespace
} // namespace corvel

void InitUI() {
    if (corvel::IsFinderSwitchOn()) {
        corvel::TearDown();
        corvel::ObserveFinderSwitch(); // a switch that was on at launch must be seen to go off
    } else if (!corvel::Overlay().built) {
        corvel::Build();
    } else {
        corvel::FollowScene();
    }
}
