#pragma once
// What tests of code on the Objective-C runtime need around it.

#include "apple/foundation/exception.hpp"
#include "objc/class_builder.hpp"
#include "runtime/autorelease.hpp"

namespace corvel::test {

/// An autorelease pool for the extent of a test.
struct Pool : sim::AutoreleasePool {
    ~Pool() noexcept = default; // what a pool releases here does not raise; a fixture may not either
};

/// Raises an NSException with the reason.
inline void Raise(ns::String reason) {
    ns::Exception::exceptionWithName("HostException"_ns, reason).raise();
}

/// Registers a class with the methods; nil when the superclass is missing or the name is taken.
template <std::size_t N>
objc::Class RegisterClass(const char *name, const char *superclass, const objc::MethodEntry (&methods)[N]) {
    const objc::Class cls = objc::AllocateClass(name, superclass);
    if (cls != nullptr) {
        objc_registerClassPair(cls);
        objc::AddMethods(cls, methods);
    }
    return cls;
}

/// A new instance of the class.
inline objc::Ref<ns::Object> NewInstance(objc::Class cls) {
    return objc::Ref<ns::Object>::Adopt(objc::Send<"new", ns::Object>(ns::Object{objc::AsObject(cls)}));
}

} // namespace corvel::test
