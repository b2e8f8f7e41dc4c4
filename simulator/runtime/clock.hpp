#pragma once
// The one clock of the simulated phone. Time moves only when the driver says so; everything that waits (main-queue
// blocks, dispatch_after, animations, long presses, background sleeps) waits here and runs on the main thread, in
// order of due time, then of scheduling.

#include <cstdint>
#include <functional>

namespace sim::clock {

/// Seconds since launch.
double Now();

/// Names one scheduled piece of work; never 0.
using Token = std::uint64_t;

/// Runs the work `delay` seconds from now (0: at the next drain, after what is due already), in an autorelease pool
/// of its own. Delays count in whole nanoseconds; an exception that the work raises passes to whoever drains.
Token Schedule(double delay, std::function<void()> work);

/// Takes back work that has not run; unknown tokens are ignored.
void Cancel(Token token);

/// How many pieces of work have run so far.
std::uint64_t WorkDone();

/// Runs everything that is due at the present time, including what that work schedules for now.
void Drain();

/// Drains, then moves time on by `seconds`, stopping at each due time on the way to run what is due there.
void Advance(double seconds);

/// Moves time on without running anything, as a main thread that sleeps does: what falls due meanwhile is late.
void Skip(double seconds);

} // namespace sim::clock
