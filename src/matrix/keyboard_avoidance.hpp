#pragma once
// Keeping an editor's box above the keyboard.

#include "apple/uikit/view.hpp"

namespace corvel {

/// The tokens of the two observers that move a box.
struct KeyboardObservers {
    ns::Object willShow;
    ns::Object willHide;
};

/// Moves the box up before the keyboard comes and back to the middle of the screen's height when it goes. The observers
/// do nothing once the box, which they hold weakly, is gone; they stay registered until their tokens are removed from
/// the default notification centre.
KeyboardObservers AvoidKeyboard(ui::View box);

} // namespace corvel
