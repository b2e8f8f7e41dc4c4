#pragma once
// Which objects the user defaults can hold.

#include "apple/foundation/object.hpp"

namespace corvel {

/// Whether an object is a string, number, date or data, or an array or a dictionary with string keys of such objects
/// all the way down. It must nest no deeper than what came out of JSON can (512 levels).
bool IsStorable(ns::Object object);

} // namespace corvel
