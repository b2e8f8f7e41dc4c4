#pragma once
// Type encodings computed from C++ types, written as arm64 iOS writes them (no offsets).

#include "objc/fixed_string.hpp"
#include "objc/object.hpp"

namespace objc {

/// The encoding of one type; structures specialise it beside their definition.
template <class T> struct Encode;

template <> struct Encode<void> {
    static constexpr FixedString value{"v"};
};
template <> struct Encode<bool> {
    static constexpr FixedString value{"B"};
};
template <> struct Encode<char16_t> {
    static constexpr FixedString value{"S"};
};
template <> struct Encode<int> {
    static constexpr FixedString value{"i"};
};
template <> struct Encode<unsigned> {
    static constexpr FixedString value{"I"};
};
template <> struct Encode<long> {
    static constexpr FixedString value{"q"};
};
template <> struct Encode<unsigned long> {
    static constexpr FixedString value{"Q"};
};
template <> struct Encode<long long> {
    static constexpr FixedString value{"q"};
};
template <> struct Encode<unsigned long long> {
    static constexpr FixedString value{"Q"};
};
template <> struct Encode<float> {
    static constexpr FixedString value{"f"};
};
template <> struct Encode<double> {
    static constexpr FixedString value{"d"};
};
template <> struct Encode<SEL> {
    static constexpr FixedString value{":"};
};
template <> struct Encode<Class> {
    static constexpr FixedString value{"#"};
};
template <> struct Encode<id> {
    static constexpr FixedString value{"@"};
};
template <> struct Encode<const char *> {
    static constexpr FixedString value{"r*"};
};
template <> struct Encode<char *> {
    static constexpr FixedString value{"*"};
};
template <> struct Encode<IMP> {
    static constexpr FixedString value{"^?"};
};
template <class T> struct Encode<T *> {
    static constexpr FixedString value = FixedString{"^"} + Encode<T>::value;
};
template <class T> struct Encode<const T *> {
    static constexpr FixedString value = FixedString{"r^"} + Encode<T>::value;
};
template <class T>
    requires std::is_enum_v<T>
struct Encode<T> {
    static constexpr FixedString value = Encode<std::underlying_type_t<T>>::value;
};
template <Handle T> struct Encode<T> {
    static constexpr FixedString value{"@"};
};

namespace detail {
constexpr auto Join(auto first, auto... rest) {
    return (first + ... + rest);
}
} // namespace detail

/// The encoding of a method with the result R and, after receiver and selector, the arguments A.
template <class R, class... A>
inline constexpr auto kMethodEncoding = detail::Join(Encode<R>::value, FixedString{"@:"}, Encode<A>::value...);

} // namespace objc
