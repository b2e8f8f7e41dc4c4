#pragma once
// Xiaohongshu: the decorate view of a live room, its comment bar, its messaging engine.

#include "hosts/host.hpp"

namespace sim::hosts {

std::unique_ptr<Host> MakeXiaohongshu();

} // namespace sim::hosts
