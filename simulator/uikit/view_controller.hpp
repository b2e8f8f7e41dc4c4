#pragma once
// UIViewController: its view, and modal presentation.

#include "apple/foundation/string.hpp"
#include "apple/uikit/window.hpp"
#include "runtime/native_class.hpp"
#include "uikit/target_action.hpp"

namespace sim {

struct ControllerState {
    objc::Ref<ui::View> view;
    objc::Ref<ns::String> title;
    objc::Ref<ui::ViewController> presented;
    ui::ViewController presenting; // not owned: it owns this one
    UIModalPresentationStyle presentationStyle = UIModalPresentationAutomatic;
    UIModalTransitionStyle transitionStyle = UIModalTransitionStyleCoverVertical;
    bool isBeingDismissed = false;
    bool capturesStatusBar = false; // although it does not cover the screen as a full-screen one does
    WeakObject editedBefore;        // the first responder that its coming took the keyboard from
};

/// The part of UIViewController that presents others.
void DefinePresentation(Class<ControllerState> &controller);

/// Gives the views of what is presented in a window the sizes that the window's present size asks for.
void ResizePresented(ui::Window window);

/// Tells a window's root controller that its view has come up or gone.
void SetRootAppears(ui::ViewController controller, bool appears);

} // namespace sim
