#pragma once
// Touching the host's objects. Any of their methods may be the host's own and raise.

#include "adapters/method_types.hpp"
#include "apple/foundation/object.hpp"
#include "objc/guard.hpp"

namespace corvel {

/// A reference to the object; empty for nil, for one that is being deallocated (retaining does not save it), and when
/// the host's own retain raises.
inline objc::Ref<ns::Object> HeldIfAlive(ns::Object object) {
    objc::Ref<ns::Object> held;
    objc::Guard([&] {
        if (object.retainWeakReference()) {
            held = objc::Ref<ns::Object>::Adopt(object);
        }
    });
    return held;
}

/// Gives the reference up. An exception out of a host's own release or dealloc ends here.
inline void LetGo(objc::Ref<ns::Object> &held) {
    objc::Guard([&] { held = nullptr; });
}

/// Holds the object in place of the previous occupant, which is released after it: the last one captured wins. One that
/// is being deallocated changes nothing, nil empties the place. What the host raises ends here instead of in the hooked
/// method.
template <objc::Handle T> void Hold(objc::Ref<T> &place, T object) {
    const objc::Ref<ns::Object> held = HeldIfAlive(object);
    if (held || !object) {
        objc::Guard([&] { place = objc::As<T>(held.get()); });
    }
}

/// What read() gives; a zero value when the host raises on the way.
template <class Read> auto ReadGuarded(Read read) {
    decltype(read()) value{};
    objc::Guard([&] { value = read(); });
    return value;
}

/// Sends a message without arguments for what it does, when the object responds. What the host raises passes on.
inline void PerformIfPresent(ns::Object object, objc::SEL selector) {
    if (object.respondsToSelector(selector)) {
        object.performSelector(selector);
    }
}

/// The object's answer to a message without arguments; nil when it does not respond, or declares another answer than an
/// object. What the host raises passes on.
inline ns::Object PerformIfAnswered(ns::Object object, objc::SEL selector) {
    if (!object.respondsToSelector(selector)) {
        return {};
    }
    // A message that the object passes on to another has no method here, and no declared answer.
    const objc::Method method = class_getInstanceMethod(objc::object_getClass(object.pointer), selector);
    return method == nullptr || IsObjectGetter(method_getTypeEncoding(method)) ? object.performSelector(selector)
                                                                               : ns::Object{};
}

} // namespace corvel
