#pragma once
// What the library wants of the host apps, read from its own tables.

#include "adapters/douyin/latency_options.hpp"
#include "adapters/send_table.hpp"

#include <string>
#include <vector>

namespace inspect {

struct WantedHook {
    std::string className;
    std::string selector;
    bool usesFirstAsObject;
};

/// A getter that an option of the library forces.
struct WantedGetter {
    std::string className;
    std::string selector;
    const corvel::ForcedGetter *forced;
};

/// An option that the user switches on, by the key of its preference.
struct WantedOption {
    std::string key;
    std::vector<WantedGetter> getters;
};

struct WantedHost {
    std::string name;
    std::vector<WantedHook> hooks;
    std::span<const corvel::SendPath> paths;
    std::vector<WantedOption> options;
};

/// All hosts, in the library's order.
const std::vector<WantedHost> &WantedHosts();

/// The place in that order of the host that the library takes an app with this bundle identifier for.
std::size_t HostWithIdentifier(const std::string &identifier);

} // namespace inspect
