#pragma once
// JSON text to Foundation objects.

#include "apple/foundation/object.hpp"

#include <string>
#include <string_view>

namespace sim::json {

/// The outcome of reading: an object, or what is wrong with the text.
struct ReadResult {
    objc::Ref<ns::Object> object;
    std::string error;
};

/// Reads one JSON value that makes up the whole text, which is UTF-8 and may begin with a byte-order mark. Integers
/// that fit become long long numbers, others doubles; the last of equal keys counts. Fails on anything that RFC 8259
/// does not allow, on unpaired surrogate escapes, on numbers beyond a double and on more than 512 levels.
ReadResult Read(std::string_view text, bool mutableContainers);

} // namespace sim::json
