#pragma once
// Properties by key. Apps expose the same thing under names that vary from build to build, so an object answers
// key-value reads for whatever keys a script has given it, and raises for every other key as any object does.

#include "hosts/host_class.hpp"

#include <map>

namespace sim::hosts {

struct KeyedState {
    std::map<std::string, objc::Ref<ns::Object>> values;
};

/// Registers a root class whose objects, and those of its subclasses, are keyed.
void RegisterKeyedRoot(const char *name);

/// What an object of such a class answers for keys.
inline std::map<std::string, objc::Ref<ns::Object>> &ValuesOf(ns::Object object) {
    return StateOf<KeyedState>(object).values;
}

/// The value under a key; nil when there is none.
ns::Object ValueUnder(ns::Object object, const std::string &key);

/// A getter and a setter of one key.
template <objc::FixedString Key> ns::Object GetKey(ns::Object self, objc::SEL) {
    return ValueUnder(self, Key.data);
}
template <objc::FixedString Key> void SetKey(ns::Object self, objc::SEL, ns::Object value) {
    ValuesOf(self)[Key.data] = objc::Ref<ns::Object>(value);
}

} // namespace sim::hosts
