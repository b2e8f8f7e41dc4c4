#pragma once
// How work is counted: in instructions, under valgrind's callgrind, which writes one file for each named count.

#include "apple/foundation/object.hpp"

#include <string>
#include <valgrind/callgrind.h>

namespace bench {

/// An autorelease pool, as the platform's run loop has one around every event.
struct Pool : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "NSAutoreleasePool";
};

/// Runs the work in a pool of its own. A warm-up: selectors, classes and fonts are looked up at their first use.
template <class Work> [[gnu::noinline]] void Run(Work work) {
    const auto pool = ns::New<Pool>(); // its release empties it
    work();
}

/// Counts the instructions of one run of the work, with what it autoreleases, under the name. Outside of callgrind the
/// work just runs.
template <class Work> void Count(const std::string &name, Work work) {
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    Run(work);
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
}

/// Counts ours and the least that must be done side by side, each after a run that warms up: `name/work`, `name/floor`.
/// Before each run `prepare` brings about what it starts from.
template <class Prepare, class Work, class Floor>
void CountPair(const std::string &name, Prepare prepare, Work work, Floor floor) {
    Run(prepare);
    Run(work);
    Run(prepare);
    Count(name + "/work", work);
    Run(prepare);
    Run(floor);
    Run(prepare);
    Count(name + "/floor", floor);
}
/// Counts what the work cannot do without beside its floor: calls of the platform that its purpose asks for. Named
/// `name/also`, and shown where a goal against the floor alone is out of reach.
template <class Prepare, class Needed> void CountAlso(const std::string &name, Prepare prepare, Needed needed) {
    Run(prepare);
    Run(needed);
    Run(prepare);
    Count(name + "/also", needed);
}

template <class Work, class Floor> void CountPair(const std::string &name, Work work, Floor floor) {
    CountPair(name, [] {}, work, floor);
}

} // namespace bench

/// A function that scripts call by its name.
#define CORVEL_BENCH extern "C" __attribute__((visibility("default"))) void
