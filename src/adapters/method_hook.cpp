#include "adapters/method_hook.hpp"

#include "adapters/host_access.hpp"
#include "adapters/method_types.hpp"
#include "apple/dispatch/queue.hpp"

#include <cstdlib>
#include <utility>

namespace corvel {
namespace {

/// The method that the class itself defines for the selector, inherited ones left aside; nil when it defines none.
objc::Method OwnMethod(objc::Class cls, objc::SEL selector) {
    unsigned count = 0;
    objc::Method *const methods = class_copyMethodList(cls, &count);
    objc::Method found = nullptr;
    for (unsigned i = 0; i < count && found == nullptr; ++i) {
        // By name: a runtime may keep one selector for each set of types that a name is declared with.
        if (static_cast<bool>(sel_isEqual(method_getName(methods[i]), selector))) {
            found = methods[i];
        }
    }
    std::free(static_cast<void *>(methods));
    return found;
}

} // namespace

namespace detail {

Kept::Kept(objc::id self, objc::id argument)
    : self_(HeldIfAlive(ns::Object{self})), argument_(HeldIfAlive(ns::Object{argument})) {}

Kept::~Kept() {
    LetGo(argument_);
    LetGo(self_);
}

void RunOnMainAfterDealloc(void (*bodies)(objc::id self, objc::id argument), objc::id self) {
    dispatch::AsyncOnMain([bodies, self] { bodies(self, nullptr); });
}

void Kept::RunOnMain(void (*bodies)(objc::id self, objc::id argument)) {
    if (!self_) {
        return;
    }
    dispatch::AsyncOnMain(
        [bodies, self = std::exchange(self_, nullptr), argument = std::exchange(argument_, nullptr)]() mutable {
            bodies(self.get().pointer, argument.get().pointer);
            LetGo(argument);
            LetGo(self);
        });
}

} // namespace detail

void InstallMethodHook(objc::Class cls, objc::SEL selector, objc::IMP replacement, objc::IMP *previousSlot,
                       bool usesFirstAsObject) {
    for (objc::Class level = cls; level != nullptr; level = class_getSuperclass(level)) {
        const objc::Method method = OwnMethod(level, selector);
        if (method == nullptr) {
            continue;
        }
        if (!CanStandFor(method_getTypeEncoding(method), sel_getName(selector), usesFirstAsObject)) {
            return;
        }
        if (level == cls) {
            *previousSlot = method_setImplementation(method, replacement);
        } else {
            *previousSlot = method_getImplementation(method);
            class_addMethod(cls, selector, replacement, method_getTypeEncoding(method));
        }
        return;
    }
}

} // namespace corvel
