#pragma once
// The phone's library, loaded as its dynamic linker would.

#include "mapped_image.hpp"

namespace device {

/// Maps the library at `path`: reads, fixes, binds and prepares it. What `ahead` knows of the imports comes before
/// everything else. Crash reports use the dSYM beside the library. Throws Refusal when anything is not as it should be.
void MapDeviceLibrary(
    const std::string &path, const ImportResolver &ahead = [](const std::string &) -> void * { return nullptr; });

/// Runs the initialisers of the mapped library: the first of its code that runs.
void RunInitialisers();

/// The address of an exported function of the loaded library, by its C name; null when it exports none such.
void *DeviceSymbol(const std::string &name);

} // namespace device
