#pragma once
// Foundation objects to JSON text.

#include "apple/foundation/json_serialization.hpp"

#include <string>

namespace sim::json {

/// The outcome of writing: UTF-8 text, or why there is none.
struct WriteResult {
    std::string text;
    /// What is wrong with the object's types or numbers; writing such an object is the caller's mistake.
    std::string invalid;
    /// Whether a string has no UTF-8 form (an unpaired surrogate).
    bool unconvertible = false;
};

/// Writes a string, number, null, array or dictionary with everything in it.
WriteResult Write(ns::Object object, NSJSONWritingOptions options);

} // namespace sim::json
