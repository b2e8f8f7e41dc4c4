#include "runtime/deallocation.hpp"

#include "objc/send.hpp"
#include "runtime/associated_objects.hpp"
#include "runtime/replace_method.hpp"
#include "runtime/weak_references.hpp"

namespace sim {
namespace {

Original<void, objc::id> originalDealloc = nullptr;

void Release(objc::id self, objc::SEL) {
    if (ReleaseWasLast(self)) {
        objc::Send<"dealloc", void>(objc::Object{self});
    }
}

void Dealloc(objc::id self, objc::SEL selector) {
    // Class objects are owners too, but nothing ever frees them.
    if (class_isMetaClass(objc::object_getClass(self)) == 0) {
        ReleaseAssociatedObjects(self);
        ClearWeakReferences(self); // some classes count for themselves and send dealloc without NSObject's release
    }
    originalDealloc(self, selector);
}

} // namespace

void InstallDeallocationHooks() {
    ReplaceMethod("NSObject", objc::Selector<"release">(), &Release);
    originalDealloc = ReplaceMethod("NSObject", objc::Selector<"dealloc">(), &Dealloc);
}

} // namespace sim
