#include "driver/presented.hpp"

#include "apple/uikit/window.hpp"
#include "uikit/application.hpp"

#include <ranges>

namespace sim::driver {

std::vector<ui::ViewController> PresentedControllers() {
    std::vector<ui::ViewController> controllers;
    const std::vector<ui::Window> windows = WindowsFrontToBack();
    for (const ui::Window window : std::views::reverse(windows)) {
        for (ui::ViewController at = window.rootViewController().presentedViewController(); at;
             at = at.presentedViewController()) {
            if (objc::Send<"isBeingDismissed", bool>(at)) {
                break; // whatever it presents goes with it
            }
            controllers.push_back(at);
        }
    }
    return controllers;
}

std::vector<ui::AlertController> PresentedAlerts() {
    std::vector<ui::AlertController> alerts;
    for (const ui::ViewController controller : PresentedControllers()) {
        if (controller.isKindOfClass(objc::ClassOf<ui::AlertController>())) {
            alerts.emplace_back(controller.pointer);
        }
    }
    return alerts;
}

} // namespace sim::driver
