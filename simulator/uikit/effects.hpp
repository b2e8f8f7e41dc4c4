#pragma once
// Blur effects and UIVisualEffectView.

#include "apple/uikit/effects.hpp"
#include "uikit/color.hpp"

#include <optional>

namespace sim {

/// How a visual-effect view treats what lies behind it.
struct BlurLook {
    double deviation;  // of the blur, points
    double saturation; // 1 leaves colours as they are
    Rgba tint;         // laid over the result
};

/// The look of a view under the present appearance; none for a view that is no visual-effect view or has no effect.
std::optional<BlurLook> BlurLookOf(ui::View view);

} // namespace sim
