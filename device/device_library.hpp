#pragma once
// The phone's library, loaded as its dynamic linker would.

#include <string>

namespace device {

/// Maps the library at `path`: reads, fixes, binds and prepares it. Crash reports use the dSYM beside it. Throws
/// Refusal when anything is not as it should be.
void MapDeviceLibrary(const std::string &path);

/// Runs the initialisers of the mapped library: the first of its code that runs.
void RunInitialisers();

/// The address of an exported function of the loaded library, by its C name; null when it exports none such.
void *DeviceSymbol(const std::string &name);

} // namespace device
