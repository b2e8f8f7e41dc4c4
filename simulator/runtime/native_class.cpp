#include "runtime/native_class.hpp"

#include "runtime/method_caches.hpp"

#include <bit>
#include <cstdio>
#include <cstdlib>

namespace sim {

std::vector<ApiRow> &ApiRows() {
    static std::vector<ApiRow> rows;
    return rows;
}

namespace detail {

void StopForNil() {
    std::fprintf(stderr, "state asked of nil\n");
    std::abort();
}

objc::Class MakeClass(const char *name, const char *superclass, bool hasState,
                      std::span<const InstanceVariable> variables) {
    const objc::Class cls = objc::AllocateClass(name, superclass);
    if (cls == nullptr) {
        std::fprintf(stderr, "cannot register class %s under %s\n", name, superclass);
        std::abort();
    }
    if (hasState) {
        class_addIvar(cls, name, sizeof(void *), 3, "^v");
    }
    for (const auto &[variable, encoding, size] : variables) {
        class_addIvar(cls, variable.c_str(), size, static_cast<std::uint8_t>(std::countr_zero(size)), encoding.c_str());
    }
    objc_registerClassPair(cls);
    return cls;
}

objc::Class ExistingClass(const char *name) {
    const objc::Class cls = objc_getClass(name);
    if (cls == nullptr) {
        std::fprintf(stderr, "cannot extend missing class %s\n", name);
        std::abort();
    }
    return cls;
}

std::ptrdiff_t StateOffset(objc::Class cls) {
    return ivar_getOffset(class_getInstanceVariable(cls, class_getName(cls)));
}

void SetMethod(objc::Class cls, objc::SEL selector, objc::IMP implementation, const char *encoding) {
    // Adding fails exactly where the class has a method of its own.
    if (!class_addMethod(cls, selector, implementation, encoding)) {
        SetImplementation(cls, class_getInstanceMethod(cls, selector), implementation);
    }
}

} // namespace detail
} // namespace sim
