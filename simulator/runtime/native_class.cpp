#include "runtime/native_class.hpp"

#include <cstdio>
#include <cstdlib>

namespace sim {
namespace {

void List(const char *name, std::span<const objc::MethodEntry> methods, char kind) {
    for (const objc::MethodEntry &method : methods) {
        ApiRows().push_back({name, kind, sel_getName(method.selector()), method.encoding});
    }
}

void Set(objc::Class cls, std::span<const objc::MethodEntry> methods) {
    for (const objc::MethodEntry &method : methods) {
        unsigned count = 0;
        objc::Method *own = class_copyMethodList(cls, &count);
        objc::Method present = nullptr;
        for (unsigned i = 0; i < count; ++i) {
            if (sel_isEqual(method_getName(own[i]), method.selector()) != 0) {
                present = own[i];
            }
        }
        std::free(static_cast<void *>(own));
        if (present != nullptr) {
            method_setImplementation(present, method.implementation);
        } else {
            class_addMethod(cls, method.selector(), method.implementation, method.encoding);
        }
    }
}

} // namespace

std::vector<ApiRow> &ApiRows() {
    static std::vector<ApiRow> rows;
    return rows;
}

objc::Class RegisterClass(const char *name, const char *superclass, std::span<const objc::MethodEntry> instanceMethods,
                          std::span<const objc::MethodEntry> classMethods, std::size_t stateSlots) {
    const objc::Class cls = objc::AllocateClass(name, superclass);
    if (cls == nullptr) {
        std::fprintf(stderr, "cannot register class %s under %s\n", name, superclass);
        std::abort();
    }
    if (stateSlots != 0) {
        class_addIvar(cls, name, sizeof(void *), 3, "^v");
    }
    objc_registerClassPair(cls);
    Set(cls, instanceMethods);
    Set(objc::MetaclassOf(cls), classMethods);
    List(name, instanceMethods, '-');
    List(name, classMethods, '+');
    return cls;
}

void ExtendClass(const char *name, std::span<const objc::MethodEntry> instanceMethods,
                 std::span<const objc::MethodEntry> classMethods) {
    const objc::Class cls = objc_getClass(name);
    if (cls == nullptr) {
        std::fprintf(stderr, "cannot extend missing class %s\n", name);
        std::abort();
    }
    Set(cls, instanceMethods);
    Set(objc::MetaclassOf(cls), classMethods);
    List(name, instanceMethods, '-');
    List(name, classMethods, '+');
}

namespace detail {

void StopForNil() {
    std::fprintf(stderr, "state asked of nil\n");
    std::abort();
}

void AddStatePointer(objc::Class cls, std::ptrdiff_t &offset, objc::IMP dealloc) {
    offset = ivar_getOffset(class_getInstanceVariable(cls, class_getName(cls)));
    class_addMethod(cls, objc::Selector<"dealloc">(), dealloc, "v@:");
}

} // namespace detail
} // namespace sim
