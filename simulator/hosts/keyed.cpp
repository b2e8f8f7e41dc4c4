#include "hosts/keyed.hpp"

#include "hosts/shaped_method.hpp"
#include "script/values.hpp"

#include <utility>

namespace sim::hosts {
namespace {

struct KeyedState {
    std::map<std::string, objc::Ref<ns::Object>> values;
};

/// A planned throw may name the key itself.
ns::Object ValueForUndefinedKey(ns::Object self, ns::String key) {
    const std::string name = script::TextOf(key);
    if (const std::string *reason = ThePlan().MeetThrow(objc::object_getClass(self.pointer), name)) {
        Raise(*reason);
    }
    if (ValuesOf(self).contains(name)) {
        return ValueUnder(self, name);
    }
    return objc::SendSuper<"valueForUndefinedKey:", ns::Object>(self, key); // raises, as for any object
}

} // namespace

void RegisterKeyedRoot(const char *name, const char *superclass) {
    auto root = Class<KeyedState>(name, superclass);
    root.Method<"valueForUndefinedKey:", &ValueForUndefinedKey>();
}

bool IsKeyed(objc::Class cls) {
    for (; cls != nullptr; cls = class_getSuperclass(cls)) {
        if (cls == sim::detail::StateSlot<KeyedState>::cls) {
            return true;
        }
    }
    return false;
}

std::map<std::string, objc::Ref<ns::Object>> &ValuesOf(ns::Object object) {
    return StateOf<KeyedState>(object).values;
}

namespace {

/// What an object without the property makes of a message for it.
void CheckKeyed(ns::Object object, const std::string &key) {
    if (!IsKeyed(objc::object_getClass(object.pointer))) {
        objc::Send<"doesNotRecognizeSelector:", void>(object, sel_registerName(key.c_str()));
    }
}

} // namespace

void Keep(ns::Object object, const std::string &key, ns::Object value) {
    CheckKeyed(object, key);
    const objc::Ref<ns::Object> before = std::exchange(ValuesOf(object)[key], value);
    RefreshPlannedVariable(object, key);
}

void TakeAway(ns::Object object, const std::string &key) {
    const auto before = ValuesOf(object).extract(key);
    RefreshPlannedVariable(object, key);
}

void ForgetEverywhere(ns::Object value) {
    for (const objc::Ref<ns::Object> &object : TheObjects().Alive()) {
        if (!IsKeyed(objc::object_getClass(object.get().pointer))) {
            continue;
        }
        std::vector<std::string> keys;
        for (auto &[key, kept] : ValuesOf(object)) {
            if (kept.get() == value) {
                kept.Abandon();
                keys.push_back(key);
            }
        }
        for (const std::string &key : keys) {
            TakeAway(object, key);
        }
    }
}

ns::Object ValueUnder(ns::Object object, const std::string &key) {
    CheckKeyed(object, key);
    const auto &values = ValuesOf(object);
    const auto found = values.find(key);
    return found != values.end() ? found->second.get() : ns::Object{};
}

} // namespace sim::hosts
