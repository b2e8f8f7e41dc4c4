#pragma once
// UIToolbar.

#include "apple/uikit/toolbar.hpp"

namespace sim {

/// After UIButton's and the bar items' registration.
void RegisterToolbar();

} // namespace sim
