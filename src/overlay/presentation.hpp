#pragma once
// Showing view controllers of our own over whatever the host shows.

#include "apple/uikit/view_controller.hpp"

namespace corvel {

/// The end of the chain of controllers that starts at this one and follows what each presents.
ui::ViewController TopmostPresented(ui::ViewController controller);

/// Presents the controller, animated, over all that the key window's root controller presents already, and calls the
/// completion (may be nil) once it is up. Nothing happens without a key window or a root controller. Main thread.
void PresentOnTop(ui::ViewController controller, objc::Block<void()> completion);

} // namespace corvel
