#pragma once
// Which view controller the phone asks about its status bar and about turning its interface.

#include "apple/uikit/window.hpp"

namespace sim {

/// What a controller is asked about.
enum class Question { kOrientation, kStatusBarHidden, kStatusBarStyle };

/// The controller that answers: of the top-most visible window that has a root controller, the root or what is
/// presented over the whole window by it. The level of the window does not matter, nor whether it is key. Nil when no
/// window has a root controller.
ui::ViewController TopController(Question question);

} // namespace sim
