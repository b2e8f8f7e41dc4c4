#pragma once
// What the library wants of the host apps, read from its own tables.

#include "adapters/send_table.hpp"

#include <string>
#include <vector>

namespace inspect {

struct WantedHook {
    std::string className;
    std::string selector;
    bool usesFirstAsObject;
};

struct WantedHost {
    std::string name;
    std::vector<WantedHook> hooks;
    std::span<const corvel::SendPath> paths;
};

/// All hosts, in the library's order.
const std::vector<WantedHost> &WantedHosts();

/// The place in that order of the host that the library takes an app with this bundle identifier for.
std::size_t HostWithIdentifier(const std::string &identifier);

} // namespace inspect
