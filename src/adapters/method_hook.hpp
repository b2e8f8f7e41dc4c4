#pragma once
// Replacing methods of the host's classes.
//
// A replacement is a plain function with the method's own parameter list that forwards to the implementation which
// was in force before, exactly once, with exactly what it received:
//
//     Word DidMoveToWindow(objc::id self, objc::SEL selector) {
//         const Word result = state.previous.didMoveToWindow(self, selector);
//         ...
//         return result;
//     }
//
// What the host's method itself throws passes through to the host's caller, as it would without the hook.

#include "objc/class_builder.hpp"

namespace corvel {

/// An argument or a result of a hooked method as it travels, in one general register: an object, a block, an integer,
/// a BOOL or nothing. Which one it is the host knows; handing the register on whole suits them all.
using Word = std::uintptr_t;

/// The place that remembers the implementation in force before a replacement. It stays empty when the hook could not
/// be installed; then the replacement is never reached either.
struct PreviousMethod {
    objc::IMP implementation = nullptr;

    /// Calls the remembered implementation.
    template <class... A> Word operator()(objc::id self, objc::SEL selector, A... arguments) const {
        return reinterpret_cast<Word (*)(objc::id, objc::SEL, A...)>(implementation)(self, selector, arguments...);
    }
};

/// A replacement that only forwards; A are the arguments after receiver and selector.
template <const PreviousMethod &Previous, class... A>
Word PassThrough(objc::id self, objc::SEL selector, A... arguments) {
    return Previous(self, selector, arguments...);
}

/// Replaces the method that instances of the class answer the selector with, and puts its implementation into the
/// slot. An inherited method is overridden in the class, so the ancestor and its other subclasses keep theirs.
/// Without the class (nil), or when no class of its chain defines the selector, nothing happens.
void InstallMethodHook(objc::Class cls, objc::SEL selector, objc::IMP replacement, objc::IMP *previousSlot);

/// One row of an adapter's table of hooks.
struct MethodHook {
    const char *className;
    objc::SEL (*selector)();
    objc::IMP replacement;
    PreviousMethod *previous;
};

/// The row that replaces the named method of the class by Replacement, which forwards through Previous.
template <objc::FixedString Name, PreviousMethod &Previous, auto Replacement> MethodHook HookOf(const char *className) {
    return {className, &objc::Selector<Name>, reinterpret_cast<objc::IMP>(Replacement), &Previous};
}

/// The row that wraps the named method without changing anything; A are its arguments after receiver and selector.
template <objc::FixedString Name, PreviousMethod &Previous, class... A>
MethodHook PassThroughOf(const char *className) {
    return HookOf<Name, Previous, &PassThrough<Previous, A...>>(className);
}

/// Installs the hooks in the order of the table, each in the class that goes by the row's name.
template <std::size_t N> void InstallMethodHooks(const MethodHook (&hooks)[N]) {
    for (const MethodHook &hook : hooks) {
        InstallMethodHook(objc_getClass(hook.className), hook.selector(), hook.replacement,
                          &hook.previous->implementation);
    }
}

} // namespace corvel
