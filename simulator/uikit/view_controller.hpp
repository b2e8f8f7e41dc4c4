#pragma once
// UIViewController: its view, and modal presentation.

#include "apple/uikit/window.hpp"

namespace sim {

void RegisterViewController();

/// Tells a window's root controller that its view has come up or gone.
void SetRootAppears(ui::ViewController controller, bool appears);

} // namespace sim
