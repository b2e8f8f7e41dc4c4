#pragma once
// What UIKit adds to NSString: measuring, and the keys of text attributes.

#include "apple/uikit/text_measuring.hpp"

#include <string>

namespace sim {

/// The text's UTF-16 units as they stand, unpaired surrogates included; none for nil.
std::u16string UnitsOf(ns::String text);

} // namespace sim
