#pragma once
// Entry to this directory: makes Foundation and the Objective-C runtime of the desktop behave as the phone's.

namespace sim {

/// Installs every replacement of a runtime or Foundation method. Called once, on the main thread, after
/// SetStateDirectory and before any other code sends messages.
void InstallRuntime();

} // namespace sim
