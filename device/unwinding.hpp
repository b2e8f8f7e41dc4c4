#pragma once
// Unwinding through the image: its compact unwind table, told to this platform's unwinder.

#include "mapped_image.hpp"

namespace device {

/// Translates the image's compact unwind entries one to one into DWARF call-frame information and registers it.
/// Throws Refusal for an entry of a kind that it does not know.
void RegisterUnwinding(const MappedImage &image);

} // namespace device
