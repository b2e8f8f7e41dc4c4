#pragma once
// What one run knows, for commands and queries.

#include "driver/invariants/rules.hpp"
#include "driver/library.hpp"
#include "driver/options.hpp"
#include "script/expectation.hpp"

#include <memory>
#include <optional>

namespace sim::driver {

struct Session {
    Options options;
    Progress progress;
    std::unique_ptr<hosts::Host> host;
    Library library;
    Rules rules;
    bool launched = false;
    std::optional<UISceneActivationState> firstSceneState = UISceneActivationStateForegroundActive; // empty: no scene
    script::Pointers pointers;
};

/// Prints one fact.
void Say(const Fact &fact);

} // namespace sim::driver
