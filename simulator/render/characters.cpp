#include "render/characters.hpp"

#include "apple/foundation/string.hpp"
#include "render/utf8_text.hpp"
#include "runtime/exception.hpp"
#include "runtime/native_class.hpp"
#include "runtime/replace_method.hpp"
#include "runtime/utf16.hpp"

#include <algorithm>
#include <pango/pango.h>

extern "C" int objc_getClassList(objc::Class *classes, int room);

namespace sim {
namespace {

// How far around a unit its character is looked for at first.
constexpr unsigned long kReach = 32;

constexpr char32_t kZeroWidthJoiner = 0x200D;

/// What stands for a character while breaks are looked for. A lone surrogate and U+0000, which UTF-8 cannot pass on,
/// keep to themselves like any control character; a blank is replaced because Pango joins letters of Hangul over it.
char32_t ForBreaking(char32_t character) {
    constexpr char32_t kControl = 1;
    const bool alone = character == 0 || IsSurrogate(character);
    return alone ? kControl : character == U' ' ? U'_' : character;
}

/// Whether the sign, a virama, takes the vowel from the letter before it and binds that one to this letter. The phone
/// keeps such letters together, Pango's cursor stops between them.
bool AreConjunct(char32_t sign, char32_t letter) {
    constexpr int kVirama = 9; // the combining class
    return g_unichar_combining_class(sign) == kVirama && g_unichar_isalpha(letter) != FALSE &&
           g_unichar_get_script(sign) == g_unichar_get_script(letter);
}

/// The units at which characters start, and the end of the text.
std::vector<std::size_t> CharacterStarts(std::u16string_view text) {
    const Utf8Text utf8(text, &ForBreaking);
    std::vector<PangoLogAttr> attributes(utf8.starts.size() + 1);
    // Unicode's breaks alone, without what Pango adds for the script of a run: where a look starts must not matter.
    pango_default_break(utf8.bytes.data(), static_cast<int>(utf8.bytes.size()), nullptr, attributes.data(),
                        static_cast<int>(attributes.size()));
    std::vector<std::size_t> starts;
    char32_t sign = 0; // the last character but for joiners
    const char *at = utf8.bytes.data();
    for (std::size_t i = 0; i < utf8.starts.size(); ++i, at = g_utf8_next_char(at)) {
        const char32_t character = g_utf8_get_char(at);
        if (attributes[i].is_cursor_position != 0 && !AreConjunct(sign, character)) {
            starts.push_back(utf8.starts[i]);
        }
        sign = character != kZeroWidthJoiner ? character : sign;
    }
    starts.push_back(text.size());
    return starts;
}

/// Whether one of the letters that flags are made of is there.
bool IsFlagLetter(std::u16string_view text, std::size_t position) {
    const char32_t letter = PointAt(text, position);
    return letter >= U'🇦' && letter <= U'🇿';
}

/// The first of the starts that would be one too if the text went on to the left: what came before may belong to the
/// first character, may even join it and the second, but nothing reaches over a whole character. Only flags are paired
/// from the first letter of their row on.
std::size_t FirstSettled(std::u16string_view text, const std::vector<std::size_t> &starts) {
    for (std::size_t i = 2; i < starts.size(); ++i) {
        if (!IsFlagLetter(text, starts[i - 2]) && !IsFlagLetter(text, starts[i - 1])) {
            return i;
        }
    }
    return starts.size();
}

/// Units that join nothing among their like: most text, and Foundation asks for every unit of what it searches. Besides
/// letters of ASCII and ideographs these are the line feed, which nothing but a carriage return joins, arrows and
/// signs, pictures among them, and full-width forms.
bool IsPlain(char16_t unit) {
    struct Range {
        char16_t first;
        char16_t last;
    };
    constexpr Range kPlain[] = {{u'\n', u'\n'},   {u' ', u'~'},     {0x4E00, 0x9FFF},
                                {0x2190, 0x2BFF}, {0x3001, 0x3029}, {0xFF01, 0xFF5E}};
    return std::ranges::any_of(kPlain,
                               [unit](const Range &range) { return unit >= range.first && unit <= range.last; });
}

bool IsAmongPlainUnits(ns::String text, unsigned long index, unsigned long length) {
    const unsigned long from = index - std::min(index, 1UL);
    const unsigned long count = std::min(index + 2, length) - from;
    char16_t units[3];
    text.getCharacters(units, {from, count});
    return std::all_of(units, units + count, IsPlain);
}

/// The character that holds the unit. As much of the text is looked at as settles where it starts and ends, so the cost
/// grows with the character's length, and not with the text's.
ns::Range CharacterAt(ns::String text, unsigned long index) {
    const unsigned long length = text.length();
    if (IsAmongPlainUnits(text, index, length)) {
        return {index, 1};
    }
    for (unsigned long reach = kReach;; reach *= 2) {
        const unsigned long from = index - std::min(index, reach);
        const unsigned long to = std::min(length, index + reach);
        std::u16string units(to - from, u'\0');
        text.getCharacters(units.data(), {from, units.size()});
        // A pair's second half at the front is left out.
        const unsigned long start = from > 0 && IsLowSurrogate(units.front()) ? from + 1 : from;
        const std::u16string_view seen = std::u16string_view(units).substr(start - from);
        const std::vector<std::size_t> starts = CharacterStarts(seen);
        const auto next = std::ranges::upper_bound(starts, index - start);
        const bool startSettled =
            start == 0 || next - starts.begin() > static_cast<std::ptrdiff_t>(FirstSettled(seen, starts));
        // The last unit may be half a pair.
        const bool endSettled = to == length || *next + 1 < seen.size();
        if (startSettled && endSettled) {
            return {start + *(next - 1), *next - *(next - 1)};
        }
    }
}

std::string OutOfBounds(const char *selector, const std::string &what, ns::String text) {
    return std::string("-[NSString ") + selector + "]: " + what + " out of bounds; string length " +
           std::to_string(text.length());
}

ns::Range RangeAtIndex(ns::String self, objc::SEL selector, unsigned long index) {
    if (index >= self.length()) {
        RaiseException("NSRangeException", OutOfBounds(sel_getName(selector), "Index " + std::to_string(index), self));
    }
    return CharacterAt(self, index);
}

ns::Range RangeForRange(ns::String self, objc::SEL selector, ns::Range range) {
    const unsigned long length = self.length();
    if (range.location > length || range.length > length - range.location) {
        RaiseException(
            "NSRangeException",
            OutOfBounds(sel_getName(selector),
                        "Range {" + std::to_string(range.location) + ", " + std::to_string(range.length) + "}", self));
    }
    if (range.location == length) {
        return range;
    }
    const ns::Range first = CharacterAt(self, range.location);
    const unsigned long lastUnit = range.location + std::max(range.length, 1UL) - 1;
    const ns::Range last = lastUnit < first.location + first.length ? first : CharacterAt(self, lastUnit);
    return {first.location, last.location + last.length - first.location};
}

bool IsStringClass(objc::Class cls) {
    while (cls != nullptr && cls != objc::ClassOf<ns::String>()) {
        cls = class_getSuperclass(cls);
    }
    return cls != nullptr;
}

} // namespace

void InstallComposedCharacters() {
    constexpr auto atIndex = &objc::Selector<"rangeOfComposedCharacterSequenceAtIndex:">;
    constexpr auto forRange = &objc::Selector<"rangeOfComposedCharacterSequencesForRange:">;
    // Some of Foundation's own strings have methods of their own, and a class in use keeps what it has inherited.
    std::vector<objc::Class> classes(static_cast<std::size_t>(objc_getClassList(nullptr, 0)));
    objc_getClassList(classes.data(), static_cast<int>(classes.size()));
    for (const objc::Class cls : classes) {
        if (IsStringClass(cls)) {
            ReplaceMethod(class_getName(cls), atIndex(), &RangeAtIndex);
            ReplaceMethod(class_getName(cls), forRange(), &RangeForRange);
        }
    }
    ApiRows().push_back(
        {"NSString", '-', sel_getName(atIndex()), objc::kMethodEncoding<ns::Range, unsigned long>.data});
    ApiRows().push_back({"NSString", '-', sel_getName(forRange()), objc::kMethodEncoding<ns::Range, ns::Range>.data});
}

} // namespace sim
