#pragma once
// What tests of code on the Objective-C runtime need around it.

#include "apple/foundation/string.hpp"
#include "objc/class_builder.hpp"
#include "objc/ref.hpp"

namespace corvel::test {

/// An autorelease pool for the extent of a test.
class Pool {
  public:
    Pool() = default;
    Pool(const Pool &) = delete;
    Pool &operator=(const Pool &) = delete;
    ~Pool() noexcept = default; // what a pool releases here does not raise; a fixture may not either

  private:
    struct View : ns::Object {
        using ns::Object::Object;
        static constexpr const char *kClassName = "NSAutoreleasePool";
    };
    objc::Ref<View> pool_ = ns::New<View>();
};

/// A view of NSException, for raising.
struct Exception : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "NSException";

    static Exception exceptionWithName(ns::String name, ns::String reason) {
        return objc::SendClass<Exception, "exceptionWithName:reason:userInfo:", Exception>(name, reason, ns::Object{});
    }
    void raise() const {
        objc::Send<"raise", void>(*this);
    }
};

/// Raises an NSException with the reason.
inline void Raise(ns::String reason) {
    Exception::exceptionWithName("HostException"_ns, reason).raise();
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
