#pragma once
// Memory that another library allocates once and never frees, or that an app loses by its own fault.

extern "C" {
/// The leak checker's switches; only there in sanitized builds.
__attribute__((weak)) void __lsan_disable();
__attribute__((weak)) void __lsan_enable();
__attribute__((weak)) void __lsan_ignore_object(const void *memory);
}

namespace sim {

/// While it lives, what this thread allocates does not count as leaked. For single calls whose leaks are known and
/// are not ours.
class ForeignLeaks {
  public:
    ForeignLeaks() {
        if (__lsan_disable != nullptr) {
            __lsan_disable();
        }
    }
    ForeignLeaks(const ForeignLeaks &) = delete;
    ForeignLeaks &operator=(const ForeignLeaks &) = delete;
    ~ForeignLeaks() {
        if (__lsan_enable != nullptr) {
            __lsan_enable();
        }
    }
};

/// The block around this place, and all that it holds, no longer count as leaked.
inline void MayLeak(const void *memory) {
    if (__lsan_ignore_object != nullptr) {
        __lsan_ignore_object(memory);
    }
}

} // namespace sim
