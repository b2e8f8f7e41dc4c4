#include "preferences/storable.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/data.hpp"
#include "apple/foundation/date.hpp"
#include "apple/foundation/number.hpp"

namespace corvel {
namespace {

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
        if (!key.Is<ns::String>() || !IsStorable(members.objectForKey(key))) {
            return false;
        }
    }
    return true;
}

} // namespace

bool IsStorable(ns::Object object) {
    if (object.Is<ns::Array>()) {
        return AllStorable(objc::As<ns::Array>(object));
    }
    if (object.Is<ns::Dictionary>()) {
        return AllStorable(objc::As<ns::Dictionary>(object));
    }
    return object.Is<ns::String>() || object.Is<ns::Number>() || object.Is<ns::Date>() || object.Is<ns::Data>();
}

} // namespace corvel
