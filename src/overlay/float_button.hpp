#pragma once
// The round button that opens everything else.

namespace corvel {

/// Makes the float button in the host's colour, at its stored place, and adds it to the overlay window.
void BuildFloatButton();

} // namespace corvel
