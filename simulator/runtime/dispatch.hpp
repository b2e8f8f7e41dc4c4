#pragma once
// What libdispatch needs besides its exported functions.

namespace sim {

/// Makes +[NSThread sleepForTimeInterval:] sleep by the simulated clock.
void InstallThreadSleep();

} // namespace sim
