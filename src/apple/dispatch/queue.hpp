#pragma once
// libdispatch: the main queue, the global queues, and delays.

#include "objc/block.hpp"

#include <cstdint>

extern "C" {
struct dispatch_queue_s;
/// The main queue, which the header's dispatch_get_main_queue() gives the address of.
extern dispatch_queue_s _dispatch_main_q;
/// The concurrent queue of a priority; the flags are reserved.
dispatch_queue_s *dispatch_get_global_queue(long priority, unsigned long flags);
void dispatch_async(dispatch_queue_s *queue, objc::Block<void()> block);
void dispatch_after(std::uint64_t when, dispatch_queue_s *queue, objc::Block<void()> block);
/// The time that lies `delta` nanoseconds after `when` (0 is now).
std::uint64_t dispatch_time(std::uint64_t when, std::int64_t delta);
}

inline constexpr long DISPATCH_QUEUE_PRIORITY_BACKGROUND = INT16_MIN;

namespace dispatch {

/// Runs the function on a thread of its own, behind everything that the user waits for.
template <class F> void AsyncInBackground(F function) {
    dispatch_async(dispatch_get_global_queue(DISPATCH_QUEUE_PRIORITY_BACKGROUND, 0),
                   objc::MakeBlock<void()>(std::move(function)));
}

/// Runs the function on the main queue in a later turn.
template <class F> void AsyncOnMain(F function) {
    dispatch_async(&_dispatch_main_q, objc::MakeBlock<void()>(std::move(function)));
}

/// Runs the function on the main queue after the delay in nanoseconds.
template <class F> void AfterOnMain(std::int64_t nanoseconds, F function) {
    dispatch_after(dispatch_time(0, nanoseconds), &_dispatch_main_q, objc::MakeBlock<void()>(std::move(function)));
}

} // namespace dispatch
