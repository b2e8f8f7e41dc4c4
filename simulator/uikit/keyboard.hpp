#pragma once
// The keyboard: it comes up for a first responder that takes typing, with that one's accessory view on top of it, and
// announces each of its movements.

#include "apple/uikit/view.hpp"

#include <optional>

namespace sim {

/// Brings the keyboard in line with the first responder (nil: there is none). Called whenever that changes.
void KeyboardFollows(ui::Responder first);

/// Sets the height of all keys (points, without the accessory view; 336 for letters and 291 for the number pad unless
/// set); a keyboard that is up moves.
void SetKeyboardHeight(double height);

/// Sets how long each movement of the keyboard takes; 0.25 seconds unless set.
void SetKeyboardDuration(double seconds);

/// The frame (screen coordinates, the accessory view included) of the keyboard that is up or on its way up.
std::optional<cg::Rect> KeyboardFrame();

} // namespace sim
