#pragma once
// Typed reads of the host's standard user defaults. Every reader asks at the moment of use; a stored value of a type
// that a key cannot have (an import may bring any) reads as if the key were absent. Nothing here raises.

#include "apple/foundation/user_defaults.hpp"

namespace corvel {

/// Whether a stored object (may be nil) can be read as a number or a bool at all: a string, or a finite number.
bool IsScalar(ns::Object stored);

/// The number under the key read in single precision and widened; a string reads as the number that it begins with
/// (0 when it begins with none). The fallback when absent, of another type, or not finite.
double ReadFloatPreference(ns::String key, double fallback);
/// The bool under the key, NO when absent.
bool ReadBoolPreference(ns::String key);
/// The integer under the key, 0 when absent.
long ReadIntegerPreference(ns::String key);
/// The string under the key when there is one and it is not empty, else the fallback.
ns::String ReadStringPreference(ns::String key, ns::String fallback);

} // namespace corvel
