#pragma once
// The date on the simulated phone.

namespace sim {

/// Makes +[NSDate date] tell the simulated clock's time, counted from the same morning in every run, so that what a
/// run writes down does not depend on the day it is made.
void InstallWallClock();

} // namespace sim
