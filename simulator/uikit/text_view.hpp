#pragma once
// UITextView.

#include "apple/uikit/text_view.hpp"

namespace sim {

/// After UIScrollView's registration.
void RegisterTextView();

} // namespace sim
