#pragma once
// Surrogates: the two units that make up one character beyond the first 65,536.

#include <cstddef>
#include <string_view>

namespace sim {

constexpr bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

constexpr bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

/// Whether a whole pair starts at the position.
constexpr bool IsPairAt(std::u16string_view text, std::size_t position) {
    return position + 1 < text.size() && IsHighSurrogate(text[position]) && IsLowSurrogate(text[position + 1]);
}

/// The position, or the one before it when it lies between the halves of a pair.
constexpr std::size_t BetweenPairs(std::u16string_view text, std::size_t position) {
    return position > 0 && IsPairAt(text, position - 1) ? position - 1 : position;
}

} // namespace sim
