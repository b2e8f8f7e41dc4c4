#pragma once
// Small points in which the desktop's Foundation differs from the phone's.

namespace sim {

/// Mends them; each replacement says what it is for.
void InstallFoundationDifferences();

} // namespace sim
