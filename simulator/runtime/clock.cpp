#include "runtime/clock.hpp"

#include "runtime/autorelease.hpp"
#include "runtime/lasting.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <mutex>

namespace sim::clock {
namespace {

/// Whole nanoseconds, so that ten advances by 0.1 reach what waits for 1.0.
using Nanoseconds = std::int64_t;

constexpr double kNanosecondsPerSecond = 1e9;
constexpr Nanoseconds kNever = std::numeric_limits<Nanoseconds>::max();

Nanoseconds ToNanoseconds(double seconds) {
    // Written so that NaN counts as no delay at all.
    if (!(seconds > 0)) {
        return 0;
    }
    const double nanoseconds = seconds * kNanosecondsPerSecond;
    return nanoseconds < static_cast<double>(kNever) ? std::llround(nanoseconds) : kNever;
}

Nanoseconds Later(Nanoseconds time, Nanoseconds delay) {
    return delay < kNever - time ? time + delay : kNever;
}

struct Key {
    Nanoseconds due;
    Token token;
    auto operator<=>(const Key &) const = default;
};

/// What still waits at exit may belong to threads that sleep.
struct Clock {
    std::mutex mutex; // Foundation's own threads may schedule too
    Nanoseconds now = 0;
    Token lastToken = 0;
    std::uint64_t workDone = 0;
    std::map<Key, std::function<void()>> waiting;
};

/// Takes out the first work that is due by `limit` (or by now, if that is later), moving time on to its due time;
/// empty when there is none.
std::function<void()> TakeNext(Nanoseconds limit) {
    auto &clock = Lasting<Clock>();
    const std::lock_guard lock(clock.mutex);
    const auto first = clock.waiting.begin();
    if (first == clock.waiting.end() || first->first.due > std::max(limit, clock.now)) {
        return {};
    }
    clock.now = std::max(clock.now, first->first.due);
    std::function<void()> work = std::move(first->second);
    clock.waiting.erase(first);
    ++clock.workDone;
    return work;
}

void RunUntil(Nanoseconds limit) {
    while (std::function<void()> work = TakeNext(limit)) {
        const AutoreleasePool pool;
        work();
        work = nullptr; // what it captured goes inside the pool
    }
}

Nanoseconds NowInNanoseconds() {
    auto &clock = Lasting<Clock>();
    const std::lock_guard lock(clock.mutex);
    return clock.now;
}

} // namespace

double Now() {
    return static_cast<double>(NowInNanoseconds()) / kNanosecondsPerSecond;
}

Token Schedule(double delay, std::function<void()> work) {
    auto &clock = Lasting<Clock>();
    const std::lock_guard lock(clock.mutex);
    const Token token = ++clock.lastToken;
    clock.waiting.emplace(Key{Later(clock.now, ToNanoseconds(delay)), token}, std::move(work));
    return token;
}

void Cancel(Token token) {
    std::function<void()> cancelled; // destroyed after the lock is gone: its captures may schedule in turn
    auto &clock = Lasting<Clock>();
    const std::lock_guard lock(clock.mutex);
    const auto found = std::ranges::find(clock.waiting, token, [](const auto &entry) { return entry.first.token; });
    if (found != clock.waiting.end()) {
        cancelled = std::move(found->second);
        clock.waiting.erase(found);
    }
}

std::uint64_t WorkDone() {
    auto &clock = Lasting<Clock>();
    const std::lock_guard lock(clock.mutex);
    return clock.workDone;
}

void Drain() {
    RunUntil(NowInNanoseconds());
}

void Advance(double seconds) {
    Drain();
    const Nanoseconds target = Later(NowInNanoseconds(), ToNanoseconds(seconds));
    RunUntil(target);
    auto &clock = Lasting<Clock>();
    const std::lock_guard lock(clock.mutex);
    clock.now = std::max(clock.now, target); // work that advances the clock itself may have gone further
}

void Skip(double seconds) {
    auto &clock = Lasting<Clock>();
    const std::lock_guard lock(clock.mutex);
    clock.now = Later(clock.now, ToNanoseconds(seconds));
}

} // namespace sim::clock
