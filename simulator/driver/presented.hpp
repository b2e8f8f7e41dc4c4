#pragma once
// What is presented on the phone, for commands, queries and targets.

#include "apple/uikit/alert_controller.hpp"

#include <vector>

namespace sim::driver {

/// Every presented view controller that is not on its way out: windows from the back to the front, in each the one
/// presented first comes first.
std::vector<ui::ViewController> PresentedControllers();

/// The alerts among them.
std::vector<ui::AlertController> PresentedAlerts();

} // namespace sim::driver
