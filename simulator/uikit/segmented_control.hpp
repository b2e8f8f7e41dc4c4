#pragma once
// UISegmentedControl, with titles.

namespace sim {

/// After UIControl's registration.
void RegisterSegmentedControl();

} // namespace sim
