#include "overlay/windows.hpp"

#include "overlay/state.hpp"

namespace corvel {
namespace {

/// Calls visit(scene) for each foreground-active window scene in order until it returns true.
template <class Visit> void VisitForegroundScenes(Visit visit) {
    for (const ns::Object scene : ui::Application::sharedApplication().connectedScenes().allObjects()) {
        if (!scene.isKindOfClass(objc::ClassOf<ui::WindowScene>())) {
            continue;
        }
        const auto windowScene = objc::As<ui::WindowScene>(scene);
        if (windowScene.activationState() == UISceneActivationStateForegroundActive && visit(windowScene)) {
            return;
        }
    }
}

} // namespace

ui::WindowScene FindForegroundScene() {
    ui::WindowScene found;
    VisitForegroundScenes([&](ui::WindowScene scene) {
        found = scene;
        return true;
    });
    return found;
}

ui::Window FindKeyWindow() {
    ui::Window found;
    VisitForegroundScenes([&](ui::WindowScene scene) {
        for (const ui::Window window : scene.windows()) {
            if (window.isKeyWindow()) {
                found = window;
                return true;
            }
        }
        return false;
    });
    return found ? found : objc::As<ui::Window>(ui::Application::sharedApplication().windows().firstObject());
}

ui::Window TopmostHostWindow() {
    const ui::Window overlay = Overlay().window;
    ui::Window topmost;
    for (const ui::Window window : overlay.windowScene().windows()) { // back to front
        if (window != overlay && !window.isHidden() && window.canBecomeKeyWindow()) {
            topmost = window;
        }
    }
    return topmost;
}

void RaiseFloatButtons() {
    const OverlayState &overlay = Overlay();
    if (overlay.floatButton) {
        overlay.window->bringSubviewToFront(overlay.floatButton);
    }
    if (overlay.captureButton) {
        overlay.window->bringSubviewToFront(overlay.captureButton);
    }
}

void RaisePanel(ui::View panel) {
    if (panel) {
        Overlay().window->bringSubviewToFront(panel);
    }
    RaiseFloatButtons();
}

} // namespace corvel
