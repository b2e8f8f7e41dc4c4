#pragma once
// The identity of the simulated host application.

namespace sim {

/// Makes the main bundle give this identifier from now on; null gives nil, as before the first call. Copied.
void SetBundleIdentifier(const char *identifier);

/// Replaces -[NSBundle bundleIdentifier]; other bundles keep theirs.
void InstallBundleIdentity();

} // namespace sim
