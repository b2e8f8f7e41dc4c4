#pragma once
// UITextField.

namespace sim {

/// After UIControl's registration.
void RegisterTextField();

} // namespace sim
