#pragma once
// Where the float button is shown, with the capture button below it: at the place that the user gave it, and after a
// rotation as near to that as the new bounds let it be. Main thread only.

#include "apple/coregraphics/geometry.hpp"

namespace corvel {

/// The centre nearest to this one at which the float button lies within a space of that size (points).
cg::Point WithinSpace(cg::Point center, cg::Size space);

/// Remembers the place that belongs to the overlay window's present bounds: the button's own (points).
void KeepFloatPlace();

/// Shows the buttons where they belong when the overlay window's bounds are no longer those of the last time; the
/// stored position stays what it is.
void FollowBounds();

/// Follows the bounds after every rotation from now on; once installed, the observer stays for good.
void ObserveRotation();

} // namespace corvel
