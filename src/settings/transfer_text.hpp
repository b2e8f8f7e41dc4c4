#pragma once
// The one string that a configuration travels in.

#include "apple/foundation/collections.hpp"
#include "apple/foundation/string.hpp"

namespace corvel {

/// "DM1:" and the base64 of the zlib stream of the dictionary's JSON text; the JSON text itself when compression fails;
/// empty when the dictionary holds what JSON has no form for.
objc::Ref<ns::String> EncodeConfiguration(ns::Dictionary configuration);

/// What a text made by EncodeConfiguration, the same under the magic "CV1:", or a bare JSON object says; empty for any
/// other text. Never raises, whatever the text is.
objc::Ref<ns::Dictionary> DecodeConfiguration(ns::String text);

} // namespace corvel
