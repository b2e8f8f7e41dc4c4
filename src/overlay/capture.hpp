#pragma once
// A picture of the host's screen without the overlay, saved to the photo album.

#include "objc/runtime.hpp"

namespace corvel {

/// Plays a haptic, hides the overlay window and captures the screen 0.2 s later. Main thread.
void StartCapture();

/// `dm_cap`: the capture button was tapped.
void HandleCaptureTap(objc::Class, objc::SEL);

} // namespace corvel
