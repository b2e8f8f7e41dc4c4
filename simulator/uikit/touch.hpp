#pragma once
// Fingers on the glass: touches in screen coordinates, delivered as UIKit delivers them. What a touch sets off for
// later (main-queue blocks, animations, long presses) waits on the clock; the caller drains or advances it.

#include "apple/coregraphics/geometry.hpp"

namespace sim {

/// Names one finger from its landing to its lifting. Any number of fingers may be down at once.
using TouchId = int;

namespace touch {

/// A finger lands at the point (points, screen coordinates). Ignored when that finger is down already.
void Began(TouchId finger, cg::Point point);
/// A finger moves. Ignored, as are the two below, when that finger is not down.
void Moved(TouchId finger, cg::Point point);
/// A finger lifts at the point.
void Ended(TouchId finger, cg::Point point);
/// The system takes the touch away (a call comes in).
void Cancelled(TouchId finger);

/// Whether that finger is down.
bool IsDown(TouchId finger);

} // namespace touch
} // namespace sim
