#include "settings/storable.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/data.hpp"
#include "apple/foundation/date.hpp"
#include "apple/foundation/number.hpp"

namespace corvel {
namespace {

template <objc::Handle T> bool Is(ns::Object object) {
    return object.isKindOfClass(objc::ClassOf<T>());
}

bool AllStorable(ns::Array elements) {
    for (unsigned long i = 0; i < elements.count(); ++i) {
        if (!IsStorable(elements.objectAtIndex(i))) {
            return false;
        }
    }
    return true;
}

bool AllStorable(ns::Dictionary members) {
    const ns::Array keys = members.allKeys();
    for (unsigned long i = 0; i < keys.count(); ++i) {
        const ns::Object key = keys.objectAtIndex(i);
        if (!Is<ns::String>(key) || !IsStorable(members.objectForKey(key))) {
            return false;
        }
    }
    return true;
}

} // namespace

bool IsStorable(ns::Object object) {
    if (Is<ns::Array>(object)) {
        return AllStorable(objc::As<ns::Array>(object));
    }
    if (Is<ns::Dictionary>(object)) {
        return AllStorable(objc::As<ns::Dictionary>(object));
    }
    return Is<ns::String>(object) || Is<ns::Number>(object) || Is<ns::Date>(object) || Is<ns::Data>(object);
}

} // namespace corvel
