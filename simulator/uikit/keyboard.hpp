#pragma once
// The keyboard: it comes up for a first responder that takes typing, with that one's accessory view on top of it, and
// announces each of its movements.

#include "apple/uikit/view.hpp"

#include <optional>

namespace sim {

/// Brings the keyboard in line with the first responder (nil: there is none). Called whenever that changes.
void KeyboardFollows(ui::Responder first);

/// Sets the height of all keys (points, without the accessory view), which otherwise is the screen's for their kind; a
/// keyboard that is up moves.
void SetKeyboardHeight(double height);

/// A keyboard that is up goes at once while the screen changes its size, and comes back at its new place after that.
void KeyboardMakesWay();
void KeyboardComesBack();

/// Sets how long each movement of the keyboard takes; 0.25 seconds unless set.
void SetKeyboardDuration(double seconds);

/// The frame (screen coordinates, the accessory view included) of the keyboard that is up or on its way up.
std::optional<cg::Rect> KeyboardFrame();

} // namespace sim
