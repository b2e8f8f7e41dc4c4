#pragma once
// UTF-16 text: the units of strings, and surrogates, two of which make up a character beyond the first 65,536.

#include "apple/foundation/string.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace sim {

constexpr bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

constexpr bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

constexpr bool IsSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xE000;
}

/// Whether a whole pair starts at the position.
constexpr bool IsPairAt(std::u16string_view text, std::size_t position) {
    return position + 1 < text.size() && IsHighSurrogate(text[position]) && IsLowSurrogate(text[position + 1]);
}

/// The code point at the position: that of a pair, or the unit itself, also when it is half a pair.
constexpr char32_t PointAt(std::u16string_view text, std::size_t position) {
    return IsPairAt(text, position) ? 0x10000 + ((text[position] - 0xD800U) << 10) + (text[position + 1] - 0xDC00U)
                                    : text[position];
}

/// How many units a code point takes.
constexpr std::size_t UnitCount(char32_t point) {
    return point < 0x10000 ? 1 : 2;
}

inline void AppendPoint(std::u16string &text, char32_t point) {
    if (UnitCount(point) == 2) {
        text += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
        point = 0xDC00 + (point & 0x3FF);
    }
    text += static_cast<char16_t>(point);
}

/// The position, or the one before it when it lies between the halves of a pair.
constexpr std::size_t BetweenPairs(std::u16string_view text, std::size_t position) {
    return position > 0 && IsPairAt(text, position - 1) ? position - 1 : position;
}

/// The string's units, unpaired surrogates included; none for nil.
inline std::u16string UnitsOf(ns::String string) {
    std::u16string units(string.length(), u'\0');
    if (!units.empty()) {
        string.getCharacters(units.data(), {0, units.size()});
    }
    return units;
}

/// An autoreleased string of the units.
inline ns::String StringOf(std::u16string_view units) {
    return ns::String::stringWithCharacters(units.data(), units.size());
}

} // namespace sim
