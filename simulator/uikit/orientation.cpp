#include "uikit/orientation.hpp"

#include "apple/foundation/notifications.hpp"
#include "apple/foundation/number.hpp"
#include "runtime/exception.hpp"
#include "runtime/lasting.hpp"
#include "runtime/native_class.hpp"
#include "runtime/variants.hpp"
#include "uikit/application.hpp"
#include "uikit/classes.hpp"
#include "uikit/keyboard.hpp"
#include "uikit/scene_state.hpp"
#include "uikit/scoped_flag.hpp"
#include "uikit/top_controller.hpp"
#include "uikit/view_controller.hpp"

#include <algorithm>
#include <initializer_list>
#include <utility>

extern "C" {
extern const ns::String UIApplicationWillChangeStatusBarOrientationNotification;
extern const ns::String UIApplicationDidChangeStatusBarOrientationNotification;
extern const ns::String UIApplicationStatusBarOrientationUserInfoKey;
extern const ns::String UIDeviceOrientationDidChangeNotification;
}

namespace sim {
namespace {

struct Device : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIDevice";
};

struct Current {
    objc::Ref<Device> device = ns::New<Device>();
};

Orientation held = Orientation::kPortrait;
int generating = 0; // calls that asked for the device's notifications and were not taken back
bool isTurning = false;

/// A UIInterfaceOrientationMask with this orientation alone.
constexpr unsigned long MaskOf(Orientation orientation) {
    return 1UL << static_cast<long>(orientation);
}

/// What the property list of an app for phones usually names: all but upside down.
constexpr unsigned long kOfApplication =
    MaskOf(Orientation::kPortrait) | MaskOf(Orientation::kLandscapeLeft) | MaskOf(Orientation::kLandscapeRight);

void Post(ns::String name, ns::Object object, ns::Dictionary info) {
    objc::Send<"postNotificationName:object:userInfo:", void>(ns::NotificationCenter::defaultCenter(), name, object,
                                                              info);
}

/// The status bar's notifications are old: nobody has settled whether an app with scenes still gets them.
void PostTurn(ns::String name, Orientation orientation) {
    if (Otherwise(Variant::kOrientationNotification)) {
        return;
    }
    const auto info = Autoreleased(ns::New<ns::MutableDictionary>());
    info.setObject(ns::Number::numberWithLong(static_cast<long>(orientation)),
                   UIApplicationStatusBarOrientationUserInfoKey);
    Post(name, ui::Application::sharedApplication(), info);
}

void ResizeWindows() {
    const cg::Rect screen{{}, ScreenSize()};
    for (const ui::Window window : WindowsOf(nullptr)) {
        if (WindowStateOf(window).scene) {
            window.setFrame(screen);
            ResizePresented(window);
        }
    }
}

/// A keyboard that is up goes before the turn and comes back after it. Everything takes its new size at once; the
/// layout comes at the end of the run-loop turn, after the notifications.
void Turn(Orientation to) {
    const ScopedFlag turning(isTurning);
    const Orientation from = InterfaceOrientation();
    KeyboardMakesWay();
    PostTurn(UIApplicationWillChangeStatusBarOrientationNotification, to);
    SetInterfaceOrientation(to);
    ResizeWindows();
    PostTurn(UIApplicationDidChangeStatusBarOrientationNotification, from);
    KeyboardComesBack();
}

unsigned long SupportedBy(ui::ViewController controller) {
    const auto mask = objc::Send<"supportedInterfaceOrientations", unsigned long>(controller) & kOfApplication;
    if (mask == 0) {
        RaiseException("UIApplicationInvalidInterfaceOrientation",
                       "Supported orientations has no common orientation with the application");
    }
    return mask;
}

/// The orientation that the interface should have under this controller.
Orientation Wanted(ui::ViewController controller) {
    const unsigned long mask = SupportedBy(controller);
    const auto supports = [mask](Orientation orientation) { return (mask & MaskOf(orientation)) != 0; };
    const Orientation now = InterfaceOrientation();
    if (supports(held) && (held == now || objc::Send<"shouldAutorotate", bool>(controller))) {
        return held;
    }
    for (const Orientation other :
         {now, Orientation::kPortrait, Orientation::kLandscapeRight, Orientation::kLandscapeLeft}) {
        if (supports(other)) {
            return other;
        }
    }
    return now;
}

} // namespace

void DefineOrientation() {
    auto device = Class("UIDevice", "NSObject");
    device.ClassMethod<"currentDevice">([](Device) -> Device { return Lasting<Current>().device; });
    // How the device is held is unknown until somebody asks for its notifications.
    device.Method<"orientation">([](Device) { return generating > 0 ? static_cast<long>(held) : 0L; });
    device.Method<"isGeneratingDeviceOrientationNotifications">([](Device) { return generating > 0; });
    device.Method<"beginGeneratingDeviceOrientationNotifications">([](Device) { ++generating; });
    device.Method<"endGeneratingDeviceOrientationNotifications">(
        [](Device) { generating = std::max(generating - 1, 0); });
}

void HoldPhone(Orientation orientation) {
    if (std::exchange(held, orientation) != orientation && generating > 0) {
        Post(UIDeviceOrientationDidChangeNotification, Lasting<Current>().device.get(), nullptr);
    }
    InterfaceFollowsController();
}

Orientation HeldOrientation() {
    return held;
}

void InterfaceFollowsController() {
    const ui::ViewController controller = TopController(Question::kOrientation);
    if (!controller || isTurning) {
        return;
    }
    if (const Orientation wanted = Wanted(controller); wanted != InterfaceOrientation()) {
        Turn(wanted);
    }
}

void ChangeScreen(const ScreenModel &model) {
    KeyboardMakesWay();
    SetScreen(model);
    ResizeWindows();
    KeyboardComesBack();
}

} // namespace sim
