#pragma once
// An app with a live room and none of the private classes that adapters look for.

#include "hosts/host.hpp"

namespace sim::hosts {

std::unique_ptr<Host> MakePlain();

} // namespace sim::hosts
