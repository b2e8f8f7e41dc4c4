#include "uikit/top_controller.hpp"

#include "uikit/alert_controller.hpp"
#include "uikit/application.hpp"
#include "uikit/scene_state.hpp"
#include "uikit/view_controller.hpp"

namespace sim {
namespace {

using ui::ViewController;

constexpr auto kFullScreen = static_cast<UIModalPresentationStyle>(0); // UIModalPresentationFullScreen

/// Whether a presented controller answers in the place of the one below. Sheets and alerts do not, and what only lies
/// over the screen does not decide about the status bar
/// (https://developer.apple.com/documentation/uikit/uiviewcontroller/modalpresentationcapturesstatusbarappearance).
bool TakesOver(ViewController controller, Question question) {
    const auto &state = StateOf<ControllerState>(controller);
    if (state.isBeingDismissed || controller.isKindOfClass(objc::ClassOf<ui::AlertController>())) {
        return false;
    }
    if (state.presentationStyle == kFullScreen) {
        return true;
    }
    return question == Question::kOrientation ? state.presentationStyle == UIModalPresentationOverFullScreen
                                              : state.capturesStatusBar;
}

/// The child that a container lets answer; nil when it answers itself.
ViewController ChildOf(ViewController controller, Question question) {
    switch (question) {
    case Question::kStatusBarHidden:
        return objc::Send<"childViewControllerForStatusBarHidden", ViewController>(controller);
    case Question::kStatusBarStyle:
        return objc::Send<"childViewControllerForStatusBarStyle", ViewController>(controller);
    case Question::kOrientation:
        break;
    }
    return {};
}

} // namespace

ViewController TopController(Question question) {
    ViewController top;
    for (const ui::Window window : WindowsFrontToBack()) {
        if (WindowStateOf(window).scene && WindowStateOf(window).root) {
            top = WindowStateOf(window).root;
            break;
        }
    }
    for (ViewController next = top; next; next = StateOf<ControllerState>(next).presented) {
        if (next == top || TakesOver(next, question)) {
            top = next;
        }
    }
    while (const ViewController child = top ? ChildOf(top, question) : ViewController{}) {
        top = child;
    }
    return top;
}

} // namespace sim
