#pragma once
// Chained fixups: the pointers of an image that depend on where it and its imports lie, as dyld reads them.
// https://github.com/apple-oss-distributions/dyld

#include "mapped_image.hpp"

namespace device {

/// Walks every chain of the image at `base` and writes each pointer: rebased to the image, or bound to an import.
/// Throws Refusal for a pointer format, import format or import that it does not know.
void ApplyChainedFixups(const MachoFile &file, std::uint8_t *base, const ImportResolver &resolver);

} // namespace device
