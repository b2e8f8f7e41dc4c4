#pragma once
// What one run knows, for commands and queries.

#include "driver/library.hpp"
#include "driver/options.hpp"
#include "hosts/host.hpp"
#include "script/expectation.hpp"

#include <memory>

namespace sim::driver {

struct Session {
    Options options;
    bool ownsState = false;
    std::unique_ptr<hosts::Host> host;
    Library library;
    bool launched = false;
    long firstSceneState = 0; // UISceneActivationState; beyond its values: no scene at all
    script::Pointers pointers;
    int expectations = 0;
    int failures = 0;
    int readyNotifications = 0;
    std::size_t nextLine = 0; // of the script
};

/// No scene is connected when the host launches.
inline constexpr long kNoScene = 100;

/// Prints one fact.
void Say(const script::Fact &fact);

} // namespace sim::driver
