#pragma once
// Writing preferences. Code of the host's hears of every change at once and may raise, and so may a store that the host
// has made its own: what it raises ends here, and what is not stored reads as before.

#include "apple/foundation/user_defaults.hpp"

namespace corvel {

/// Stores the value under the key; nil removes the key.
void StoreObject(ns::String key, ns::Object value);
void StoreBool(ns::String key, bool value);
void StoreFloat(ns::String key, float value);
void StoreInteger(ns::String key, long value);

/// What was stored outlives the app from now on.
void SynchronizeDefaults();

} // namespace corvel
