#pragma once
// The button that takes a picture of the host's screen.

#include "apple/coregraphics/geometry.hpp"

namespace corvel {

/// Where the capture button's centre belongs: 60 points straight below the float button's.
constexpr cg::Point CaptureButtonCenter(cg::Point floatButtonCenter) {
    return {floatButtonCenter.x, floatButtonCenter.y + 60};
}

/// Removes the capture button, and makes a new one while its preference is on.
void RebuildCaptureButton();

} // namespace corvel
