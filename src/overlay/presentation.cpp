#include "overlay/presentation.hpp"

#include "overlay/windows.hpp"

namespace corvel {

ui::ViewController TopmostPresented(ui::ViewController controller) {
    while (const ui::ViewController presented = controller.presentedViewController()) {
        controller = presented;
    }
    return controller;
}

void PresentOnTop(ui::ViewController controller, objc::Block<void()> completion) {
    TopmostPresented(FindKeyWindow().rootViewController()).presentViewController(controller, true, completion);
}

} // namespace corvel
