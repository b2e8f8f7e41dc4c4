#pragma once
// UISwitch.

namespace sim {

/// After UIControl's registration.
void RegisterSwitch();

} // namespace sim
