#pragma once
// What the library would find of all that it wants.

#include "inspect/classes.hpp"
#include "inspect/wanted.hpp"

#include <set>

namespace inspect {

enum class Verdict {
    kPresent,
    kInherited,
    kMissing,
    kUnfit, // its types are not those that we can carry, or call it with
};

/// What was found of one hook or one need of a way to send.
struct Finding {
    std::string className;
    std::string name; // selector or key; empty for a class
    bool isKey = false;
    Verdict verdict = Verdict::kMissing;
    /// Whether the way to send works without it.
    bool dispensable = false;
    std::string from;  // the class that defines an inherited method
    std::string types; // as declared; empty when nothing was found
    std::string note;  // what else is to be said; may be empty
};

struct PathFinding {
    std::string name;
    bool works = false;
    /// Whether an object to send through would be held.
    bool held = false;
    /// Whether it would take the comment and lose it, so that the ways behind it are not tried.
    bool loses = false;
    std::vector<Finding> steps;
    /// Why it would not work; empty when it would.
    std::string reason;
};

/// What was found of the getters that an option forces.
struct OptionFinding {
    std::string key;
    std::vector<Finding> getters;
};

struct HostFinding {
    std::string name;
    std::vector<Finding> hooks;
    std::vector<PathFinding> paths;
    std::vector<OptionFinding> options;
    /// Whether a way to send would work.
    bool works = false;
};

/// Holds what the host's table wants against the classes. Classes of the images named late are registered only after
/// the library has looked for them.
HostFinding CheckHost(const WantedHost &host, const Classes &classes, const std::set<std::string> &late);

} // namespace inspect
