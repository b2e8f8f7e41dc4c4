#pragma once
// How a host deviates from its usual make.

#include "objc/runtime.hpp"

#include <map>
#include <set>
#include <string>
#include <utility>

namespace sim::hosts {

struct Plan {
    /// A method by the name of its class and its selector.
    using Method = std::pair<std::string, std::string>;

    // Laid down before the host's classes are registered.
    std::set<std::string> lackedClasses;
    std::set<Method> lackedMethods;
    std::set<Method> extraMethods;     // that only some builds of the app have
    std::set<Method> inheritedMethods; // stand in the base class instead
    // May begin and end at any time. Both hold for the class and its subclasses.
    std::map<Method, std::string> throwing; // with its reason
    std::set<Method> refusing;              // does nothing and answers nil, false or 0

    /// The reason with which the method is to throw in objects of this class; null when it is not.
    const std::string *ReasonToThrow(objc::Class cls, const std::string &selector) const;
    /// Whether the method refuses in objects of this class.
    bool Refuses(objc::Class cls, const std::string &selector) const;
};

/// The plan of this process's one host.
Plan &ThePlan();

} // namespace sim::hosts
