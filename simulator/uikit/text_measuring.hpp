#pragma once
// What UIKit adds to NSString: measuring, and the keys of text attributes.

#include "apple/uikit/text_measuring.hpp"

#include <string>

namespace sim {

void RegisterTextMeasuring();

/// The text's UTF-16 units as they stand, unpaired surrogates included; none for nil.
std::u16string UnitsOf(ns::String text);

/// Gives the exported attribute keys (NSFontAttributeName and its like) their values. RegisterTextMeasuring calls it.
void SetTextAttributeNames();

} // namespace sim
