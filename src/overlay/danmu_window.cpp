#include "overlay/danmu_window.hpp"

#include "objc/class_builder.hpp"
#include "overlay/float_place.hpp"

namespace corvel {
namespace {

constinit objc::Class danmuWindow = nullptr;

/// A hit on the bare window or its root view is none: the touch goes on to the host's windows below.
ui::View HitTest(ui::Window self, objc::SEL, cg::Point point, ui::Event event) {
    FollowBounds(); // should the notification of a rotation not have come
    const auto hit = objc::SendSuper<"hitTest:withEvent:", ui::View>(self, point, event);
    return hit == self || hit == self.rootViewController().view() ? ui::View{} : hit;
}

} // namespace

void RegisterDanmuWindowClass() {
    danmuWindow = objc::AllocateOwnClass("DanmuWindow", "DanmuWindow_Corvel", ui::Window::kClassName);
    if (danmuWindow != nullptr) {
        static constexpr objc::MethodEntry kMethods[] = {objc::MethodNamed<"hitTest:withEvent:", &HitTest>()};
        objc::AddMethods(danmuWindow, kMethods);
        objc_registerClassPair(danmuWindow);
    }
}

ui::Window AllocateDanmuWindow() {
    return ns::Alloc<ui::Window>(danmuWindow);
}

} // namespace corvel
