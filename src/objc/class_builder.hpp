#pragma once
// Classes and methods registered at run time, with encodings taken from the C++ functions.

#include "objc/encoding.hpp"
#include "objc/object.hpp"
#include "objc/runtime.hpp"
#include "objc/selector.hpp"

#include <span>

namespace objc {

namespace detail {
template <class F> struct MethodFunction;
template <class R, class Self, class... A> struct MethodFunction<R (*)(Self, SEL, A...)> {
    static constexpr const auto &kEncoding = kMethodEncoding<R, A...>;
};
} // namespace detail

/// A function as a method's implementation. Tables hold its address, for no constant expression may cast a function:
/// so they stand ready as data, and no code need build them.
template <auto Function> inline const IMP kImplementation = reinterpret_cast<IMP>(Function);

/// One method of a table: a selector, a function of the form R (Self, SEL, arguments...), its encoding.
struct MethodEntry {
    SelectorLiteral selector;
    const IMP *implementation;
    const char *encoding;
};

/// The table entry of a function under a selector.
template <FixedString Name, auto Function> constexpr MethodEntry MethodNamed() {
    return {SelectorLiteral::Of<Name>(), &kImplementation<Function>,
            detail::MethodFunction<decltype(Function)>::kEncoding.data};
}

/// Adds the methods to a class (or, given a metaclass, to the class object). Present ones of the class itself stay.
inline void AddMethods(Class cls, std::span<const MethodEntry> methods) {
    for (const MethodEntry &method : methods) {
        class_addMethod(cls, method.selector(), *method.implementation, method.encoding);
    }
}

/// The metaclass of a class, to which class methods are added.
inline Class MetaclassOf(Class cls) {
    return object_getClass(AsObject(cls));
}

/// A new class pair, not yet registered; nil when the superclass is missing or the name is taken.
inline Class AllocateClass(const char *name, const char *superclass) {
    const Class parent = objc_getClass(superclass);
    return parent != nullptr ? objc_allocateClassPair(parent, name, 0) : nullptr;
}

/// A new class pair of the library's own. Where the host owns a class of that name, ours takes the second name.
inline Class AllocateOwnClass(const char *name, const char *secondName, const char *superclass) {
    const Class cls = AllocateClass(name, superclass);
    return cls != nullptr ? cls : AllocateClass(secondName, superclass);
}

} // namespace objc
