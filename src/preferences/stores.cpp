#include "preferences/stores.hpp"

#include "objc/guard.hpp"

namespace corvel {
namespace {

/// Runs change(defaults) with the host's standard user defaults.
template <class Change> void Try(Change change) {
    objc::Guard([&] { change(ns::UserDefaults::standardUserDefaults()); });
}

} // namespace

void StoreObject(ns::String key, ns::Object value) {
    Try([&](ns::UserDefaults defaults) {
        if (value) {
            defaults.setObject(value, key);
        } else {
            defaults.removeObjectForKey(key);
        }
    });
}

void StoreBool(ns::String key, bool value) {
    Try([&](ns::UserDefaults defaults) { defaults.setBool(value, key); });
}

void StoreFloat(ns::String key, float value) {
    Try([&](ns::UserDefaults defaults) { defaults.setFloat(value, key); });
}

void StoreInteger(ns::String key, long value) {
    Try([&](ns::UserDefaults defaults) { defaults.setInteger(value, key); });
}

void SynchronizeDefaults() {
    Try([](ns::UserDefaults defaults) { defaults.synchronize(); });
}

} // namespace corvel
