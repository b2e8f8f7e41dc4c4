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

/// How far the top corners of sheets, and all corners of what they push back, are rounded (points).
inline constexpr double kSheetRadius = 10;

/// How a controller's view is shown because of a sheet, whatever its own values are; in portrait only.
struct SheetPart {
    bool isSheet = false;  // it is one itself
    double pushedBack = 0; // how far a sheet above it has come up: from 0 to 1
    double scale = 1;      // about the middle of its upper edge,
    double moved = 0;      // and how far (points) it is moved down
};
SheetPart SheetPartOf(ui::ViewController controller);

} // namespace sim
