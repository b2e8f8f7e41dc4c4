#include "preferences/typed_reads.hpp"

#include "apple/foundation/number.hpp"

namespace corvel {
namespace {

ns::UserDefaults Store() {
    return ns::UserDefaults::standardUserDefaults();
}

} // namespace

bool IsScalar(ns::Object stored) {
    if (stored.isKindOfClass(objc::ClassOf<ns::Number>())) {
        return __builtin_isfinite(objc::As<ns::Number>(stored).doubleValue()) != 0;
    }
    return stored.isKindOfClass(objc::ClassOf<ns::String>());
}

double ReadFloatPreference(ns::String key, double fallback) {
    const ns::Object stored = Store().objectForKey(key);
    if (!IsScalar(stored)) {
        return fallback;
    }
    // Strings and numbers answer the same message.
    const double value = objc::As<ns::Number>(stored).floatValue();
    return __builtin_isfinite(value) != 0 ? value : fallback; // single precision may overflow where double does not
}

bool ReadBoolPreference(ns::String key) {
    return IsScalar(Store().objectForKey(key)) && Store().boolForKey(key);
}

long ReadIntegerPreference(ns::String key) {
    return IsScalar(Store().objectForKey(key)) ? Store().integerForKey(key) : 0;
}

ns::String ReadStringPreference(ns::String key, ns::String fallback) {
    const ns::String stored = Store().stringForKey(key);
    return stored.length() > 0 ? stored : fallback;
}

} // namespace corvel
