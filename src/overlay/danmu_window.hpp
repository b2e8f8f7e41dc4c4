#pragma once
// The overlay's window, through which every touch falls that misses the overlay's own views.

#include "apple/uikit/window.hpp"

namespace corvel {

/// Registers the class DanmuWindow, under another name where the host owns one. Called once, at load.
void RegisterDanmuWindowClass();

/// A DanmuWindow to be handed to its initialiser at once; nil should the class be missing.
ui::Window AllocateDanmuWindow();

} // namespace corvel
