// The dispatch functions that the library calls, on the simulated clock.

#include "runtime/dispatch.hpp"

#include "apple/dispatch/queue.hpp"
#include "apple/foundation/thread.hpp"
#include "runtime/background_thread.hpp"
#include "runtime/block_function.hpp"
#include "runtime/clock.hpp"
#include "runtime/replace_method.hpp"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

struct dispatch_queue_s {
    const char *label;
};

namespace sim {
namespace {

constexpr double kNanosecondsPerSecond = 1e9;
constexpr std::uint64_t kForever = std::numeric_limits<std::uint64_t>::max();

dispatch_queue_s globalQueue{"global"};

/// Present time as dispatch_time writes it: nanoseconds since launch, counted from 1 because 0 says "now".
std::uint64_t PresentTime() {
    return static_cast<std::uint64_t>(std::llround(clock::Now() * kNanosecondsPerSecond)) + 1;
}

void ScheduleOn(const dispatch_queue_s *queue, double delay, objc::Block<void()> block) {
    if (queue != &_dispatch_main_q && queue != &globalQueue) {
        std::fprintf(stderr, "dispatch to a queue that is neither the main nor a global one\n");
        std::abort();
    }
    const std::function<void()> call = FunctionOf(block);
    if (queue == &_dispatch_main_q) {
        clock::Schedule(delay, call);
    } else {
        clock::Schedule(delay, [call] { background::Run(call); });
    }
}

Original<void, objc::id, double> originalSleep = nullptr;

void SleepForTimeInterval(objc::id self, objc::SEL selector, double seconds) {
    if (background::IsCurrent()) {
        background::Sleep(seconds);
    } else if (ns::Thread::isMainThread()) {
        clock::Skip(seconds);
    } else {
        originalSleep(self, selector, seconds);
    }
}

} // namespace

void InstallThreadSleep() {
    originalSleep = ReplaceClassMethod("NSThread", objc::Selector<"sleepForTimeInterval:">(), &SleepForTimeInterval);
}

} // namespace sim

extern "C" {

dispatch_queue_s _dispatch_main_q{"main"};

void dispatch_async(dispatch_queue_s *queue, objc::Block<void()> block) {
    sim::ScheduleOn(queue, 0, block);
}

void dispatch_after(std::uint64_t when, dispatch_queue_s *queue, objc::Block<void()> block) {
    if (when == sim::kForever) {
        return;
    }
    const std::uint64_t now = sim::PresentTime();
    sim::ScheduleOn(queue, when > now ? static_cast<double>(when - now) / sim::kNanosecondsPerSecond : 0, block);
}

std::uint64_t dispatch_time(std::uint64_t when, std::int64_t delta) {
    if (when == sim::kForever) {
        return when;
    }
    const std::uint64_t start = when == 0 ? sim::PresentTime() : when;
    if (delta >= 0) {
        const auto step = static_cast<std::uint64_t>(delta);
        return step < sim::kForever - start ? start + step : sim::kForever;
    }
    const std::uint64_t step = 0 - static_cast<std::uint64_t>(delta);
    return step < start ? start - step : 1;
}

/// All priorities share one queue: they differ in nothing that the simulation shows.
dispatch_queue_s *dispatch_get_global_queue(long, unsigned long) {
    return &sim::globalQueue;
}

} // extern "C"
