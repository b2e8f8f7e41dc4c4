#pragma once
// Back to the defaults.

#include "objc/runtime.hpp"

namespace corvel {

/// `dm_clear`: asks whether to reset. Main thread.
void HandleReset(objc::Class, objc::SEL);

/// Removes every key of the library from the store and closes what shows them. The floating button stays where it is
/// until the interface is built anew. Main thread.
void ResetConfiguration();

} // namespace corvel
