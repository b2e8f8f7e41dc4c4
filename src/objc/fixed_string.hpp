#pragma once
// A string literal as a template argument: names of selectors and classes, encodings, constant strings.

#include <cstddef>

namespace objc {

template <class Char, std::size_t N> struct FixedString {
    using CharType = Char;
    Char data[N]{};

    constexpr FixedString() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): literals are meant to convert
    constexpr FixedString(const Char (&text)[N]) {
        for (std::size_t i = 0; i < N; ++i) {
            data[i] = text[i];
        }
    }
    /// Length in code units, without the terminating zero.
    static constexpr std::size_t size() {
        return N - 1;
    }
};

template <class Char, std::size_t A, std::size_t B>
constexpr FixedString<Char, A + B - 1> operator+(const FixedString<Char, A> &left, const FixedString<Char, B> &right) {
    FixedString<Char, A + B - 1> joined;
    for (std::size_t i = 0; i < A - 1; ++i) {
        joined.data[i] = left.data[i];
    }
    for (std::size_t i = 0; i < B; ++i) {
        joined.data[A - 1 + i] = right.data[i];
    }
    return joined;
}

} // namespace objc
