#include "matrix/grapheme.hpp"

#include "matrix/combining_marks.hpp"

namespace corvel {
namespace {

constexpr char32_t kZeroWidthJoiner = 0x200d;

constexpr bool IsHighSurrogate(char32_t unit) {
    return (unit & 0xfffffc00) == 0xd800;
}
constexpr bool IsLowSurrogate(char32_t unit) {
    return (unit & 0xfffffc00) == 0xdc00;
}
constexpr char32_t Combine(char32_t high, char32_t low) {
    return 0x10000 + ((high - 0xd800) << 10) + (low - 0xdc00);
}

/// The code point that begins at the index; a lone surrogate stands for itself.
char32_t CodePointAt(const Utf16Text &text, unsigned long index) {
    const char32_t unit = text[index];
    if (IsHighSurrogate(unit) && index + 1 < text.length && IsLowSurrogate(text[index + 1])) {
        return Combine(unit, text[index + 1]);
    }
    return unit;
}

/// The code point that ends before the index, which must not be 0.
char32_t CodePointBefore(const Utf16Text &text, unsigned long index) {
    const char32_t unit = text[index - 1];
    if (IsLowSurrogate(unit) && index > 1 && IsHighSurrogate(text[index - 2])) {
        return Combine(text[index - 2], unit);
    }
    return unit;
}

constexpr bool IsControl(char32_t codePoint) {
    return codePoint < 0x20 || (codePoint >= 0x7f && codePoint < 0xa0) || codePoint == 0x2028 || codePoint == 0x2029;
}

constexpr bool IsRegionalIndicator(char32_t codePoint) {
    return codePoint >= 0x1f1e6 && codePoint <= 0x1f1ff;
}

/// Code points that joined emoji are made of, by block.
constexpr bool IsPictograph(char32_t codePoint) {
    return codePoint == 0xa9 || codePoint == 0xae || codePoint == 0x203c || codePoint == 0x2049 ||
           (codePoint >= 0x2122 && codePoint <= 0x21ff) || (codePoint >= 0x2300 && codePoint <= 0x23ff) ||
           (codePoint >= 0x2460 && codePoint <= 0x27ff) || (codePoint >= 0x2900 && codePoint <= 0x297f) ||
           (codePoint >= 0x2b00 && codePoint <= 0x2bff) || codePoint == 0x3030 || codePoint == 0x303d ||
           codePoint == 0x3297 || codePoint == 0x3299 || (codePoint >= 0x1f000 && codePoint <= 0x1faff);
}

enum class Hangul { kNone, kLeading, kVowel, kTrailing, kOpenSyllable, kClosedSyllable };

constexpr Hangul HangulTypeOf(char32_t codePoint) {
    if ((codePoint >= 0x1100 && codePoint <= 0x115f) || (codePoint >= 0xa960 && codePoint <= 0xa97c)) {
        return Hangul::kLeading;
    }
    if ((codePoint >= 0x1160 && codePoint <= 0x11a7) || (codePoint >= 0xd7b0 && codePoint <= 0xd7c6)) {
        return Hangul::kVowel;
    }
    if ((codePoint >= 0x11a8 && codePoint <= 0x11ff) || (codePoint >= 0xd7cb && codePoint <= 0xd7fb)) {
        return Hangul::kTrailing;
    }
    if (codePoint >= 0xac00 && codePoint <= 0xd7a3) {
        return (codePoint - 0xac00) % 28 == 0 ? Hangul::kOpenSyllable : Hangul::kClosedSyllable;
    }
    return Hangul::kNone;
}

constexpr bool JoinsInHangul(Hangul before, Hangul after) {
    switch (before) {
    case Hangul::kLeading:
        return after != Hangul::kNone && after != Hangul::kTrailing;
    case Hangul::kVowel:
    case Hangul::kOpenSyllable:
        return after == Hangul::kVowel || after == Hangul::kTrailing;
    case Hangul::kTrailing:
    case Hangul::kClosedSyllable:
        return after == Hangul::kTrailing;
    case Hangul::kNone:
        return false;
    }
    return false;
}

/// Whether the code point is one of the viramas that bind consonants of Indic scripts (0900 to 0DFF).
constexpr bool IsVirama(char32_t codePoint) {
    return codePoint >= 0x900 && codePoint < 0xe00 &&
           ((codePoint & 0x7f) == 0x4d || (codePoint >= 0xd3b && codePoint <= 0xd3c) || codePoint == 0xdca);
}

/// The Indic scripts of that range lie in blocks of 128 code points.
constexpr bool AreOfOneBlock(char32_t left, char32_t right) {
    return left >> 7 == right >> 7;
}

/// Whether an odd number of regional indicators ends before the index: the next one completes a flag.
bool IsHalfFlagBefore(const Utf16Text &text, unsigned long index) {
    bool odd = false;
    for (; index > 1 && IsRegionalIndicator(CodePointBefore(text, index)); index -= 2) {
        odd = !odd;
    }
    return odd;
}

} // namespace

bool IsGraphemeBoundary(const Utf16Text &text, unsigned long index) {
    if (index == 0 || index >= text.length) {
        return true;
    }
    const char32_t unitBefore = text[index - 1];
    const char32_t unitAfter = text[index];
    if (IsHighSurrogate(unitBefore) && IsLowSurrogate(unitAfter)) {
        return false;
    }
    if (unitBefore == u'\r' && unitAfter == u'\n') {
        return false;
    }
    if (IsControl(unitBefore) || IsControl(unitAfter)) {
        return true;
    }
    const char32_t before = CodePointBefore(text, index);
    const char32_t after = CodePointAt(text, index);
    if (IsCombiningMark(after) || JoinsInHangul(HangulTypeOf(before), HangulTypeOf(after))) {
        return false;
    }
    if (before == kZeroWidthJoiner && IsPictograph(after)) {
        return false;
    }
    if (IsRegionalIndicator(after)) {
        return !IsHalfFlagBefore(text, index);
    }
    const char32_t linker = before == kZeroWidthJoiner && index > 1 ? CodePointBefore(text, index - 1) : before;
    return !IsVirama(linker) || !AreOfOneBlock(linker, after);
}

} // namespace corvel
