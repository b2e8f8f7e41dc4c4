#pragma once
// What Apple's Objective-C runtime offers an image and GNU's does not, or offers under another name.

#include "mapped_image.hpp"

#include <string>

namespace device {

/// The stand-in for an imported symbol of the Objective-C runtime or of Core Foundation's constant strings; null when
/// the symbol needs none.
void *BridgedSymbol(const std::string &symbol);

/// Registers the image's selectors with the runtime, in place. Throws Refusal when the image holds classes,
/// categories or protocols of its own, which nothing here would register.
void PrepareObjectiveC(const MappedImage &image);

} // namespace device
