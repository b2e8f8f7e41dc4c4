#pragma once
// Background work of the simulated phone: real threads, of which (main thread included) one runs at a time.

#include <functional>

namespace sim::background {

/// Runs the work on a thread of its own, known to Foundation, while the main thread waits: returns when the work has
/// finished, sleeps or waits for the main thread. A sleeping thread goes on when the clock reaches its time. Main
/// thread only.
void Run(std::function<void()> work);

/// Whether the calling thread was made by Run.
bool IsCurrent();

/// Has the main thread run the work at its next turn and waits until that is done. Only on a thread made by Run.
void WaitForMain(std::function<void()> work);

/// Sleeps for so many seconds of the simulated clock. Only on a thread made by Run.
void Sleep(double seconds);

} // namespace sim::background
