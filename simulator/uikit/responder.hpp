#pragma once
// UIResponder: the chain and the first responder.

#include "apple/uikit/view.hpp"

namespace sim {

/// The object that has the keyboard; nil when none has.
ui::Responder FirstResponder();

} // namespace sim
