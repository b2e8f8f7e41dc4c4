#pragma once
// Modal presentation in steps, for those who take part in it: a dismissal may follow a finger.

#include "apple/uikit/view_controller.hpp"

#include <functional>

namespace sim {

/// Whether the controller is presented as a sheet, which leaves the top of the window free.
bool IsSheet(ui::ViewController controller);

/// A presented controller is about to go: from now on it counts as being dismissed.
void BeginDismissal(ui::ViewController controller, bool animated);

/// It stays after all.
void CancelDismissal(ui::ViewController controller);

/// Moves a controller whose dismissal has begun out of sight, then lets go of it and calls the function (may be empty).
void MoveAway(ui::ViewController controller, std::function<void()> then);

} // namespace sim
