// What a long use costs: memory and processor time, without what the simulator itself keeps for its queries.

#include "driver/subjects/subjects.hpp"
#include "hosts/objects.hpp"
#include "hosts/record.hpp"
#include "runtime/library_deeds.hpp"
#include "uikit/haptics.hpp"

#include <ctime>
#include <malloc.h>

extern "C" {
/// Bytes in use, in sanitized builds, which have an allocator of their own.
__attribute__((weak)) std::size_t __sanitizer_get_current_allocated_bytes();
}

namespace sim::driver {
namespace {

std::size_t BytesInUse() {
    if (__sanitizer_get_current_allocated_bytes != nullptr) {
        return __sanitizer_get_current_allocated_bytes();
    }
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// forget
void DoForget(Session &, WordReader &words) {
    words.End();
    hosts::TheRecord().calls = {};
    hosts::TheRecord().comments = {};
    hosts::TheObjects().ForgetGone();
    ForgetHapticImpacts();
    ForgetLibraryDeeds();
}

Answer AskProcessor(Session &, WordReader &) {
    struct timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return {{Bare(static_cast<double>(time.tv_sec) + (static_cast<double>(time.tv_nsec) / 1e9))}};
}

constexpr Command kCommands[] = {{"forget", &DoForget}};

constexpr Query kQueries[] = {
    {"bytes", [](Session &, WordReader &) -> Answer { return {{Bare(BytesInUse())}}; }},
    {"processor", &AskProcessor},
};

} // namespace

constinit const Subject kWear{kCommands, kQueries};

} // namespace sim::driver
