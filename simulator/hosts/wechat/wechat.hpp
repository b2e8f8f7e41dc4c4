#pragma once
// WeChat with its Channels: the comment view of a live room, and the manager of plug-ins with its page of switches.

#include "hosts/host.hpp"

namespace sim::hosts {

std::unique_ptr<Host> MakeWeChat();

} // namespace sim::hosts
