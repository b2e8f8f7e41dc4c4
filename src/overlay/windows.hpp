#pragma once
// Finding the host's scene and window, and keeping the overlay's buttons above its panels.

#include "apple/uikit/window.hpp"

namespace corvel {

/// The first window scene that is in the foreground and active; nil while there is none.
ui::WindowScene FindForegroundScene();

/// The first key window of the foreground-active scenes, else the application's first window; nil without windows.
ui::Window FindKeyWindow();

/// The top-most visible window of the host's in the overlay's scene that can be key; nil when there is none.
ui::Window TopmostHostWindow();

/// Brings the float button and then the capture button to the front of the overlay window, each when present.
void RaiseFloatButtons();

/// Brings a panel (may be nil) to the front of the overlay window, and the float buttons in front of it.
void RaisePanel(ui::View panel);

} // namespace corvel
