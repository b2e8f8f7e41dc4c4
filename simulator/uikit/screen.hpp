#pragma once
// UIScreen: the one main screen.

#include "apple/uikit/window.hpp"

namespace sim {

/// The main screen, which serves as coordinate space too.
ui::Screen MainScreen();

} // namespace sim
