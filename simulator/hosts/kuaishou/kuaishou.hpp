#pragma once
// Kuaishou: the services of a live room, and the component that sends comments from its preview.

#include "hosts/host.hpp"

namespace sim::hosts {

std::unique_ptr<Host> MakeKuaishou();

} // namespace sim::hosts
