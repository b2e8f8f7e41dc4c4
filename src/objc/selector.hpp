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

/// A selector for tables that stand before any code has run; calling it gives the selector.
class SelectorLiteral {
  public:
    /// No selector: it must not be called.
    constexpr SelectorLiteral() = default;
    template <FixedString Name> static constexpr SelectorLiteral Of() {
#if defined(__APPLE__)
        return SelectorLiteral(&detail::SelectorReference<Name>::reference);
#else
        return SelectorLiteral(&Selector<Name>);
#endif
    }
    constexpr explicit operator bool() const {
        return source_ != nullptr;
    }
    SEL operator()() const {
#if defined(__APPLE__)
        return reinterpret_cast<SEL>(*source_);
#else
        return source_();
#endif
    }

  private:
#if defined(__APPLE__)
    using Source = const char *const *;
#else
    using Source = SEL (*)();
#endif
    constexpr explicit SelectorLiteral(Source source) : source_(source) {}
    Source source_ = nullptr;
};

} // namespace objc
