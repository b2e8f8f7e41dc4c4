#pragma once
// Turning the phone, and the interface with it.

#include "uikit/screen.hpp"

namespace sim {

/// Holds the phone so that its interface would stand this way up, and turns the interface when the controller that
/// decides supports that. Without such a controller the interface stays as it is.
void HoldPhone(Orientation orientation);

/// How the phone is held; upright at first.
Orientation HeldOrientation();

/// Brings the interface in line with how the phone is held and with what the controller that decides supports. To be
/// called whenever another controller may decide. Raises UIApplicationInvalidInterfaceOrientation for a controller that
/// supports none of the application's orientations.
void InterfaceFollowsController();

/// Gives the phone another screen, and the windows of its scenes the new size.
void ChangeScreen(const ScreenModel &model);

} // namespace sim
