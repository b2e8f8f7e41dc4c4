#pragma once
// Short notices in the middle of the host's key window.

#include "apple/foundation/string.hpp"

namespace corvel {

/// Fades the text in, keeps it for 1.6 s and fades it out. Nothing happens without a key window. Main thread.
void ShowToast(ns::String text);

} // namespace corvel
