#pragma once
// NSObject and the two ways to make one.

#include "objc/association.hpp"
#include "objc/ref.hpp"

namespace ns {

/// Anything that answers NSObject's messages.
struct Object : objc::Object {
    using objc::Object::Object;
    static constexpr const char *kClassName = "NSObject";

    // NOLINTNEXTLINE(google-explicit-constructor): every view is an object
    constexpr Object(objc::Object object) : objc::Object(object.pointer) {}
    bool respondsToSelector(objc::SEL selector) const {
        return objc::Send<"respondsToSelector:", bool>(*this, selector);
    }
    bool isKindOfClass(objc::Class cls) const {
        return objc::Send<"isKindOfClass:", bool>(*this, cls);
    }
    /// Whether the object is of the class that T stands for, or of a subclass.
    template <objc::Handle T> bool Is() const {
        return isKindOfClass(objc::ClassOf<T>());
    }
    /// Retains the object unless it is being deallocated already; whether it did.
    bool retainWeakReference() const {
        return objc::Send<"retainWeakReference", bool>(*this);
    }
    bool isEqual(Object other) const {
        return objc::Send<"isEqual:", bool>(*this, other);
    }
    /// A string that describes the object.
    Object description() const {
        return objc::Send<"description", Object>(*this);
    }
    Object performSelector(objc::SEL selector) const {
        return objc::Send<"performSelector:", Object>(*this, selector);
    }
    Object performSelector(objc::SEL selector, Object object) const {
        return objc::Send<"performSelector:withObject:", Object>(*this, selector, object);
    }
    Object performSelector(objc::SEL selector, Object first, Object second) const {
        return objc::Send<"performSelector:withObject:withObject:", Object>(*this, selector, first, second);
    }
    Object valueForKey(Object key) const {
        return objc::Send<"valueForKey:", Object>(*this, key);
    }
    void setValue(Object value, Object key) const {
        objc::Send<"setValue:forKey:", void>(*this, value, key);
    }
};

/// A new object of T's class made with alloc and init; empty while the class is missing.
template <objc::Handle T> objc::Ref<T> New() {
    return objc::Ref<T>::Adopt(objc::SendClass<T, "new", T>());
}

/// An allocated object of T's class, to be handed to one of its initialisers at once.
template <objc::Handle T> T Alloc() {
    return objc::SendClass<T, "alloc", T>();
}

// The same of a class that is known at run time only, for which T stands; nothing for nil.

template <objc::Handle T> objc::Ref<T> New(objc::Class cls) {
    return objc::Ref<T>::Adopt(objc::detail::SendTo<T, '+', "new", T>(objc::AsObject(cls)));
}
template <objc::Handle T> T Alloc(objc::Class cls) {
    return objc::detail::SendTo<T, '+', "alloc", T>(objc::AsObject(cls));
}

} // namespace ns

extern "C" {
/// The class of that name, nil when the process has none. The name must not be nil.
objc::Class NSClassFromString(objc::Object name);
}
