#pragma once
// What the overlay holds, for the whole process. Main thread only.

#include "apple/uikit/button.hpp"
#include "apple/uikit/window.hpp"
#include "objc/ref.hpp"

namespace corvel {

/// Strong references, each empty while its view is absent, and the flags of the interface assembly.
struct OverlayState {
    objc::Ref<ui::Window> window;
    objc::Ref<ui::Button> floatButton;
    objc::Ref<ui::Button> captureButton;
    /// Made by the first toast, then kept.
    objc::Ref<ui::Label> toastLabel;
    /// The float button set stands.
    bool built = false;
    /// Never cleared: the observer outlives a teardown.
    bool finderObserverInstalled = false;
    bool lastFinderSwitch = false;
};

OverlayState &Overlay();

} // namespace corvel
