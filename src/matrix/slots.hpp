#pragma once
// The preset comments: where each text lives and what its cell shows.

#include "apple/foundation/string.hpp"

namespace corvel {

/// The preference key of the slot with that index, which counts from 0. Main thread only.
ns::String SlotKey(int index);

/// The slot's stored text, exactly as typed; while there is none, the cell's number, which counts from 1.
objc::Ref<ns::String> SlotDisplayText(int index);

} // namespace corvel
