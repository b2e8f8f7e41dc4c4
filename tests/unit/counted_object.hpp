#pragma once
// Objects whose life a test can follow.

#include "apple/foundation/object.hpp"
#include "objc/class_builder.hpp"

namespace corvel::test {

/// An object that counts itself while it lives.
struct Counted : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "CorvelTestCounted";

    /// The number of those that have not been deallocated.
    static inline int alive = 0;

    unsigned long retainCount() const {
        return objc::Send<"retainCount", unsigned long>(*this);
    }
};

namespace detail {

inline void Dealloc(Counted self, objc::SEL) {
    --Counted::alive;
    objc::SendSuper<"dealloc", void>(ns::Object(objc::Object(self)));
}

inline Counted CopyWithZone(Counted, objc::SEL, void *) {
    ++Counted::alive;
    return ns::Alloc<Counted>();
}

} // namespace detail

/// A new one; the class is registered with the first.
inline objc::Ref<Counted> NewCounted() {
    if (objc::ClassOf<Counted>() == nullptr) {
        const objc::Class cls = objc::AllocateClass(Counted::kClassName, "NSObject");
        objc_registerClassPair(cls);
        const objc::MethodEntry methods[] = {objc::MethodNamed<"dealloc", &detail::Dealloc>(),
                                             objc::MethodNamed<"copyWithZone:", &detail::CopyWithZone>()};
        objc::AddMethods(cls, methods);
    }
    ++Counted::alive;
    return ns::New<Counted>();
}

} // namespace corvel::test
