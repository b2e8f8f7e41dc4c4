#pragma once
// What a crash inside the image looks like: its own symbols and offsets instead of bare addresses.

#include "mapped_image.hpp"

#include <string>

namespace device {

/// From now on a crash prints where in the image it happened and from where that was called, by the symbols of the
/// Mach-O file at `symbolsPath`, and ends the process.
void ReportCrashes(const MappedImage &image, const std::string &symbolsPath);

} // namespace device
