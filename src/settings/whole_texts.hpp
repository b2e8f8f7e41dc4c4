#pragma once
// Texts that can be written as JSON.

#include "apple/foundation/object.hpp"

namespace corvel {

/// A property list in whose texts, keys too, every half of a surrogate pair that stands alone is U+FFFD: JSON has no
/// room for such halves, and a log that was cut may begin with one. The list itself stays as it is.
objc::Ref<ns::Object> WithWholeTexts(ns::Object value);

} // namespace corvel
