#pragma once
// The phone's library, loaded as its dynamic linker would.

#include <string>

namespace device {

/// Loads the library at `path`: reads, maps, fixes, binds, prepares and runs its initialiser. Crash reports
/// use the dSYM beside it. Throws Refusal, with nothing of the image run, when anything is not as it should be.
void LoadDeviceLibrary(const std::string &path);

/// The address of an exported function of the loaded library, by its C name; null when it exports none such.
void *DeviceSymbol(const std::string &name);

} // namespace device
