#pragma once
// Douyin: comment fragments, comment stores, the context of a comment, room models, the live player's preferences.

#include "hosts/host.hpp"

namespace sim::hosts {

std::unique_ptr<Host> MakeDouyin();

} // namespace sim::hosts
