// method_setImplementation as the phone's runtime has it: from then on every object of the class and of the classes
// that inherit the method runs the new implementation, also those that have been messaged before. The desktop's runtime
// leaves the old one in the dispatch tables of subclasses.

#include "objc/class_builder.hpp"

#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>
#include <vector>

extern "C" {
int objc_getClassList(objc::Class *classes, int room);
/// Builds the dispatch tables of the class and of its subclasses anew where they have been built before.
void __objc_update_dispatch_table_for_class(objc::Class cls);
}

namespace sim {
namespace {

using SetImplementation = objc::IMP (*)(objc::Method, objc::IMP);

SetImplementation RuntimesOwn() {
    static const auto own = reinterpret_cast<SetImplementation>(dlsym(RTLD_NEXT, "method_setImplementation"));
    return own;
}

/// Whether the method is the class's own one. Looks at its list alone: a lookup would initialise the class.
bool Owns(objc::Class cls, objc::Method method) {
    unsigned count = 0;
    objc::Method *const methods = class_copyMethodList(cls, &count);
    const bool owns = std::find(methods, methods + count, method) != methods + count;
    std::free(static_cast<void *>(methods));
    return owns;
}

/// The class, or the metaclass, that the method stands in; nil when no class has it.
objc::Class OwnerOf(objc::Method method) {
    std::vector<objc::Class> classes(static_cast<std::size_t>(objc_getClassList(nullptr, 0)));
    const int count = objc_getClassList(classes.data(), static_cast<int>(classes.size()));
    classes.resize(static_cast<std::size_t>(count));
    for (const objc::Class cls : classes) {
        for (const objc::Class holder : {cls, objc::MetaclassOf(cls)}) {
            if (Owns(holder, method)) {
                return holder;
            }
        }
    }
    return nullptr;
}

} // namespace
} // namespace sim

extern "C" objc::IMP method_setImplementation(objc::Method method, objc::IMP implementation) {
    const objc::IMP before = sim::RuntimesOwn()(method, implementation);
    if (const objc::Class owner = sim::OwnerOf(method)) {
        __objc_update_dispatch_table_for_class(owner);
    }
    return before;
}
