#pragma once
// Touching the host's objects. Any of their methods may be the host's own and raise.

#include "apple/foundation/object.hpp"
#include "objc/guard.hpp"

namespace corvel {

/// Holds the object in place of the previous occupant, which is released after it: the last one captured wins. An
/// exception out of a host's own retain, release or dealloc ends here instead of in the hooked method.
template <objc::Handle T> void Hold(objc::Ref<T> &place, T object) {
    objc::Guard([&] { place = objc::Ref<T>(object); });
}

/// What read() gives; a zero value when the host raises on the way.
template <class Read> auto ReadGuarded(Read read) {
    decltype(read()) value{};
    objc::Guard([&] { value = read(); });
    return value;
}

/// The object's answer to a message without arguments; nil when it does not respond. What the host raises passes on.
inline ns::Object PerformIfAnswered(ns::Object object, objc::SEL selector) {
    return object.respondsToSelector(selector) ? object.performSelector(selector) : ns::Object{};
}

} // namespace corvel
