#include "hosts/keyed.hpp"

#include "script/values.hpp"

namespace sim::hosts {
namespace {

/// A planned throw may name the key itself.
ns::Object ValueForUndefinedKey(ns::Object self, objc::SEL, ns::String key) {
    const std::string name = script::TextOf(key);
    if (const std::string *reason = ThePlan().ReasonToThrow(objc::object_getClass(self.pointer), name)) {
        Raise(*reason);
    }
    const auto &values = ValuesOf(self);
    const auto found = values.find(name);
    if (found != values.end()) {
        return found->second;
    }
    return objc::SendSuper<"valueForUndefinedKey:", ns::Object>(self, key); // raises, as for any object
}

} // namespace

void RegisterKeyedRoot(const char *name) {
    const objc::MethodEntry methods[] = {objc::MethodNamed<"valueForUndefinedKey:", &ValueForUndefinedKey>()};
    RegisterClassWithState<KeyedState>(name, "NSObject", methods);
}

ns::Object ValueUnder(ns::Object object, const std::string &key) {
    const auto &values = ValuesOf(object);
    const auto found = values.find(key);
    return found != values.end() ? found->second.get() : ns::Object{};
}

} // namespace sim::hosts
