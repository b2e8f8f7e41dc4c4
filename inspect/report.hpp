#pragma once
// What the check says, for people and for programs.

#include "inspect/app.hpp"
#include "inspect/check.hpp"

#include <nlohmann/json_fwd.hpp>

namespace inspect {

struct Report {
    std::string name;
    std::string identifier;
    std::vector<HostFinding> hosts;
    /// The place of the app's own host; of a bare executable, which says of none, of the first that works, else the
    /// number of hosts.
    std::size_t own = 0;
    std::vector<std::string> leftAside;

    /// Whether a way to send of the app's host works.
    bool works() const {
        return own < hosts.size() && hosts[own].works;
    }
};

/// Holds an app against the library's tables. Throws BadInput for classes that make no sense.
Report MakeReport(const App &app);

/// Lines for people: of all hosts, the app's own first in the last line.
std::string AsText(const Report &report);
nlohmann::json AsJson(const Report &report);

} // namespace inspect
