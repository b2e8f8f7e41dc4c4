#pragma once
// What Douyin's latency switches force, as a table. On the phone it is applied; `inspect` reads it to tell which of the
// getters an app still has.

#include "objc/selector.hpp"
#include "preferences/preferences.hpp"

#include <span>

namespace corvel {

/// A class of the player, and how log lines call it.
struct PlayerClass {
    ns::Literal name;
    ns::Literal label;
};

struct ForcedGetter {
    enum class Kind : unsigned char { kInteger, kBool };
    objc::SelectorLiteral selector;
    Kind kind;
    std::int64_t value;
};

/// The getters of one class that a switch forces; counted as a feature when the class is there.
struct LatencyOption {
    const BoolPreference &preference;
    const PlayerClass &player;
    ForcedGetter getters[7]; // those without a selector are none
};

/// Whether a method declared with the types gives what the getter is forced to.
bool CanForce(const ForcedGetter &forced, const char *types);

/// In the order in which they are applied.
std::span<const LatencyOption> LatencyOptions();

} // namespace corvel
