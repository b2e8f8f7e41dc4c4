#include "adapters/method_hook.hpp"

#include "adapters/host_access.hpp"
#include "adapters/method_types.hpp"
#include "apple/dispatch/queue.hpp"

#include <cstdlib>
#include <utility>

namespace corvel {
namespace {

/// The methods of one class at a time, inherited ones left aside. Rows that hook the same class find the list copied
/// already. A lookup through the runtime instead would send messages to classes of the host's before it has begun.
class OwnMethods {
  public:
    OwnMethods() = default;
    OwnMethods(const OwnMethods &) = delete;
    OwnMethods &operator=(const OwnMethods &) = delete;
    ~OwnMethods() {
        std::free(static_cast<void *>(list_));
    }

    /// The method that the class itself defines for the selector; nil when it defines none.
    objc::Method Find(objc::Class cls, objc::SEL selector) {
        if (cls != class_) {
            std::free(static_cast<void *>(list_));
            list_ = class_copyMethodList(cls, &count_);
            class_ = cls;
        }
        for (unsigned i = 0; i < count_; ++i) {
            // By name: a runtime may keep one selector for each set of types that a name is declared with.
            if (static_cast<bool>(sel_isEqual(method_getName(list_[i]), selector))) {
                return list_[i];
            }
        }
        return nullptr;
    }

  private:
    objc::Class class_ = nullptr;
    objc::Method *list_ = nullptr;
    unsigned count_ = 0;
};

/// InstallMethodHook with the lists that it looks at.
void Install(OwnMethods &methods, objc::Class cls, objc::SEL selector, objc::IMP replacement, objc::IMP *previousSlot,
             bool usesFirstAsObject) {
    for (objc::Class level = cls; level != nullptr; level = class_getSuperclass(level)) {
        const objc::Method method = methods.Find(level, selector);
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
    OwnMethods methods;
    Install(methods, cls, selector, replacement, previousSlot, usesFirstAsObject);
}

void InstallMethodHooks(std::span<const MethodHook> hooks) {
    OwnMethods methods;
    const char *className = nullptr;
    objc::Class cls = nullptr;
    for (const MethodHook &hook : hooks) {
        if (hook.className != className) { // a view's one name, so that its address tells
            className = hook.className;
            cls = objc_getClass(className);
        }
        Install(methods, cls, hook.selector(), *hook.replacement, hook.previousSlot, hook.usesFirstAsObject);
    }
}

} // namespace corvel
