#pragma once
// The small views that the settings panel is put together from.

#include "apple/uikit/button.hpp"
#include "apple/uikit/label.hpp"

namespace corvel {

/// How wide the panel's card is, and what its rows keep of that.
inline constexpr double kSettingsWidth = 300;
inline constexpr double kSettingsMargin = 20;
inline constexpr double kSettingsRowWidth = 260;

/// Views one under the other: y, in points, is where the next one goes.
struct Column {
    ui::View container;
    double y = 0;
};

/// Adds a label to the container, which owns it from then on.
ui::Label AddLabel(ui::View container, cg::Rect frame, ns::String text, ui::Font font, ui::Color color);

/// Adds a system button with a title and an action on touch-up-inside to the container, which owns it from then on.
ui::Button AddSystemButton(ui::View container, cg::Rect frame, ns::String title, ui::Color titleColor,
                           objc::SEL action);

} // namespace corvel
