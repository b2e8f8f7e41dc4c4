#pragma once
// What an app is made of, as its file declares it, whatever the plan leaves out: the names that a plan may use.

#include "hosts/plan.hpp"

#include <set>

namespace sim::hosts {

struct Inventory {
    std::set<std::string> classes;        // that builds may lack
    std::set<std::string> keyed;          // those whose objects keep values under keys
    std::map<Plan::Method, bool> methods; // whether only some builds have it
    std::set<std::string> selectors;      // of all of them
};

/// The inventory of this process's one host, complete once its classes are registered.
Inventory &TheInventory();

/// Holds what was planned before the launch against the inventory. Throws ScriptError, at the place of its line, for
/// the first name that the app does not have: a misspelt one would change nothing, and the script would show nothing.
void CheckSetUp();

/// Throws ScriptError unless the class has that method and it is the app's own. After the launch.
void CheckMethod(const Plan::Method &method, const script::Place &place);

/// The same for what is to throw: where objects of the class answer key-value reads for keys of a script's own, it may
/// be such a key.
void CheckMethodOrKey(const Plan::Method &method, const script::Place &place);

} // namespace sim::hosts
