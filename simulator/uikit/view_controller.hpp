#pragma once
// UIViewController: its view, and modal presentation.

#include "apple/foundation/string.hpp"
#include "apple/uikit/window.hpp"
#include "runtime/native_class.hpp"
#include "uikit/presentation_controller.hpp"
#include "uikit/target_action.hpp"

namespace sim {

struct ControllerState {
    ControllerState() = default;
    ControllerState(const ControllerState &) = delete;
    ControllerState &operator=(const ControllerState &) = delete;
    /// Whom the controller presents may live on; nobody presents it then.
    ~ControllerState();

    objc::Ref<ui::View> view;
    objc::Ref<ns::String> title;
    objc::Ref<ui::ViewController> presented;
    ui::ViewController presenting; // not owned: it owns this one
    UIModalPresentationStyle presentationStyle = UIModalPresentationAutomatic;
    UIModalTransitionStyle transitionStyle = UIModalTransitionStyleCoverVertical;
    bool isBeingPresented = false;
    bool isBeingDismissed = false;
    bool capturesStatusBar = false;                 // although it does not cover the screen as a full-screen one does
    bool modalInPresentation = false;               // no swipe takes it away
    objc::Ref<PresentationController> presentation; // made at its first use
    objc::Ref<ui::View> container;                  // while it is presented; in the presenter's window, above all else
    WeakObject editedBefore;                        // the first responder that its coming took the keyboard from
};

/// The part of UIViewController that presents others.
void DefinePresentation(Class<ControllerState> &controller);

/// Gives the views of what is presented in a window the sizes that the window's present size asks for.
void ResizePresented(ui::Window window);

/// Tells a window's root controller that its view has come up or gone.
void SetRootAppears(ui::ViewController controller, bool appears);

} // namespace sim
