#pragma once
// UISlider.

namespace sim {

/// After UIControl's registration.
void RegisterSlider();

} // namespace sim
