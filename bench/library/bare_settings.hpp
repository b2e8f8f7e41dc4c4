#pragma once
// The settings panel made by bare calls, with what a fresh configuration shows. The floor that the library's own way is
// measured against.

#include "apple/uikit/effects.hpp"

namespace bench {

/// Makes the panel with all controls in the overlay window. `unfolded`: with the last section open.
objc::Ref<ui::VisualEffectView> AddBareSettings(bool unfolded);

/// Springs it in.
void SpringIn(ui::View panel);

} // namespace bench
