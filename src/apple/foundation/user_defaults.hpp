#pragma once
// NSUserDefaults.

#include "apple/foundation/collections.hpp"
#include "apple/foundation/string.hpp"

namespace ns {

struct UserDefaults : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSUserDefaults";

    static UserDefaults standardUserDefaults() {
        return objc::SendClass<UserDefaults, "standardUserDefaults", UserDefaults>();
    }
    Object objectForKey(String key) const {
        return objc::Send<"objectForKey:", Object>(*this, key);
    }
    void setObject(Object object, String key) const {
        objc::Send<"setObject:forKey:", void>(*this, object, key);
    }
    void removeObjectForKey(String key) const {
        objc::Send<"removeObjectForKey:", void>(*this, key);
    }
    String stringForKey(String key) const {
        return objc::Send<"stringForKey:", String>(*this, key);
    }
    bool boolForKey(String key) const {
        return objc::Send<"boolForKey:", bool>(*this, key);
    }
    void setBool(bool value, String key) const {
        objc::Send<"setBool:forKey:", void>(*this, value, key);
    }
    long integerForKey(String key) const {
        return objc::Send<"integerForKey:", long>(*this, key);
    }
    void setInteger(long value, String key) const {
        objc::Send<"setInteger:forKey:", void>(*this, value, key);
    }
    void setFloat(float value, String key) const {
        objc::Send<"setFloat:forKey:", void>(*this, value, key);
    }
    Dictionary dictionaryRepresentation() const {
        return objc::Send<"dictionaryRepresentation", Dictionary>(*this);
    }
    bool synchronize() const {
        return objc::Send<"synchronize", bool>(*this);
    }
};

} // namespace ns

extern "C" {
/// Posted after a change of any value in the defaults.
extern const ns::String NSUserDefaultsDidChangeNotification;
}
