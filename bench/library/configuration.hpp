#pragma once
// The configurations that are measured.

#include "apple/foundation/string.hpp"

namespace bench {

/// The text of a slot: so many UTF-16 units of Chinese, another text for each slot.
objc::Ref<ns::String> SlotText(int slot, unsigned long units);

/// Stores a custom grid of columns and rows whose every slot holds a text of so many units, and nothing else.
void StoreGrid(int columns, int rows, unsigned long units);

} // namespace bench
