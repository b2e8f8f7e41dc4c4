#pragma once
// UILabel.

#include "apple/uikit/label.hpp"

namespace sim {

/// After UIView's registration.
void RegisterLabel();

} // namespace sim
