#pragma once
// Where the simulated phone keeps its user defaults.

#include "apple/foundation/collections.hpp"

#include <string>

namespace sim {

/// Chooses the directory (made when missing) that the user defaults live in: runs given the same one find each
/// other's values, and the developer's own settings are neither read nor written. Fixes time zone and locale too.
/// Must come first in main, before any message is sent to Foundation. Ends the process with a message when the
/// directory cannot be made.
void SetStateDirectory(const std::string &directory);

/// Loads the defaults of the state directory and makes synchronize and the process's end write them there.
void InstallUserDefaults();

/// What app and library have stored, without what Foundation itself adds; autoreleased, nil when there is nothing.
ns::Dictionary StoredPreferences();

} // namespace sim
