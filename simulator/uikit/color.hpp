#pragma once
// UIColor, with the system's colours for the light and the dark appearance.

#include "apple/uikit/color.hpp"

namespace sim {

/// Components from 0 to 1, not premultiplied.
struct Rgba {
    double r = 0;
    double g = 0;
    double b = 0;
    double a = 0;
    friend bool operator==(const Rgba &, const Rgba &) = default;
};

/// What a colour looks like under the present appearance, within the screen's range; nil is clear.
Rgba RgbaOf(ui::Color color);

/// Switches the whole phone between the light and the dark appearance.
void SetDarkAppearance(bool dark);
bool IsDarkAppearance();

} // namespace sim
