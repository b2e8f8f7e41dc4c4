#include "preferences/storable.hpp"

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
    for (const ns::Object element : ns::ArrayOf<ns::Object>(elements)) {
        if (!IsStorable(element)) {
            return false;
        }
    }
    return true;
}

bool AllStorable(ns::Dictionary members) {
    for (const ns::Object key : members.allKeys()) {
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
