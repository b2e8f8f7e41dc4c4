#include "overlay/danmu_window.hpp"

#include "objc/class_builder.hpp"

namespace corvel {
namespace {

/// The class itself, which no other part of the process can know under this name before it is registered.
struct DanmuWindow : ui::Window {
    using ui::Window::Window;
    static constexpr const char *kClassName = "DanmuWindow";
};

/// A hit on the bare window or its root view is none: the touch goes on to the host's windows below.
ui::View HitTest(ui::Window self, objc::SEL, cg::Point point, ui::Event event) {
    const auto hit = objc::SendSuper<"hitTest:withEvent:", ui::View>(self, point, event);
    return hit == self || hit == self.rootViewController().view() ? ui::View{} : hit;
}

} // namespace

void RegisterDanmuWindowClass() {
    if (objc::Class cls = objc::AllocateClass(DanmuWindow::kClassName, ui::Window::kClassName)) {
        const objc::MethodEntry methods[] = {objc::MethodNamed<"hitTest:withEvent:", &HitTest>()};
        objc::AddMethods(cls, methods);
        objc_registerClassPair(cls);
    }
}

ui::Window AllocateDanmuWindow() {
    return ns::Alloc<DanmuWindow>();
}

} // namespace corvel
