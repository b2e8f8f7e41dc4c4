#pragma once
// Sending a slot's text as a live comment.

#include "apple/uikit/button.hpp"

namespace corvel {

/// `dm_mT:`: sends the tapped cell's whole text through the host's adapter, whatever it holds; an empty slot sends its
/// number. Then captures the screen when that is wanted. Main thread.
void HandleCellTap(objc::Class, objc::SEL, ui::Button cell);

} // namespace corvel
