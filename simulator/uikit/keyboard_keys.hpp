#pragma once
// The keyboard's face: rows of keys. Touches end here; typing is the driver's.

#include "apple/uikit/view.hpp"

namespace sim {

inline constexpr const char *kKeysClass = "UIKeyboard";

/// Gives the keys the face that the view under edit asks for: letters, or a number pad.
void ShowKeysFor(ui::Responder edited);

/// Whether that is the number pad, which has keys for the ten digits and for nothing else.
bool IsNumberPad(ui::Responder edited);

} // namespace sim
