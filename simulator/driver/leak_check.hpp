#pragma once
// What sanitized builds are told: how their own reports end the process, and the leak checker, which runs by itself
// only when a process ends by returning from main.

extern "C" {
/// Reports what no pointer leads to any more; true when there is any. Only there in sanitized builds.
__attribute__((weak)) int __lsan_do_recoverable_leak_check();
}

namespace sim::driver {

/// The exit status of a run that leaked, whatever its expectations say. What the checker's own would be.
inline constexpr int kLeakedStatus = 23;

/// The exit status of a run in which a sanitizer found something else: none that a script ends with.
inline constexpr const char *kSanitizerOptions = "exitcode=24";

/// Whether memory has leaked so far, which is then reported on standard error; false in builds without the checker.
inline bool HasLeaked() {
    return __lsan_do_recoverable_leak_check != nullptr && __lsan_do_recoverable_leak_check() != 0;
}

} // namespace sim::driver
