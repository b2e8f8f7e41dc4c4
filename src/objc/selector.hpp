#pragma once
// Selectors by name, each registered with the runtime once.

#include "objc/fixed_string.hpp"
#include "objc/runtime.hpp"

namespace objc {

#if defined(__APPLE__)
namespace detail {

/// A name and the pointer to it that the runtime makes unique when it maps the image, as the compiler itself emits
/// them for @selector: by the time any code runs the pointer is the selector.
template <FixedString Name> struct SelectorReference {
    [[gnu::section("__TEXT,__objc_methname,cstring_literals")]] static constexpr auto name = Name;
    // Neither constant nor local to its unit: the optimiser must not take the initial value for the lasting one.
    [[gnu::section(
        "__DATA,__objc_selrefs,literal_pointers,no_dead_strip")]] static inline constinit const char *reference =
        name.data;
};

} // namespace detail
#endif

/// The selector of a literal name, as in Selector<"setFrame:">().
template <FixedString Name> SEL Selector() {
#if defined(__APPLE__)
    return reinterpret_cast<SEL>(detail::SelectorReference<Name>::reference);
#else
    static constinit SEL selector = nullptr;
    if (selector == nullptr) {
        selector = sel_registerName(Name.data);
    }
    return selector;
#endif
}

} // namespace objc
