#include "runtime/string_differences.hpp"

#include "apple/foundation/string.hpp"
#include "objc/guard.hpp"
#include "runtime/native_class.hpp"
#include "runtime/replace_method.hpp"
#include "runtime/utf16.hpp"

#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace sim {
namespace {

/// Whether Foundation's own initialisers take the units as they are.
bool IsPlain(std::u16string_view units) {
    if (!units.empty() && (units[0] == 0xFEFF || units[0] == 0xFFFE)) {
        return false;
    }
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (IsPairAt(units, i)) {
            ++i;
        } else if (IsSurrogate(units[i])) {
            return false;
        }
    }
    return true;
}

/// A string that lends the units of somebody else's buffer, for as long as it takes Foundation to copy them.
struct BorrowedState {
    std::u16string_view units;
};

struct BorrowedString : ns::String {
    using String::String;
    static constexpr const char *kClassName = "CorvelSimBorrowedString";
};

void DefineBorrowedString() {
    auto string = Class<BorrowedState>(BorrowedString::kClassName, "NSString");
    string.Method<"length">([](const BorrowedState &state) { return state.units.size(); });
    string.Method<"characterAtIndex:">(
        [](const BorrowedState &state, unsigned long index) { return state.units[index]; });
    string.Method<"getCharacters:range:">([](const BorrowedState &state, char16_t *buffer, ns::Range range) {
        state.units.copy(buffer, range.length, range.location);
    });
}

/// What an initialiser of `self` gives: an owned string of Foundation's own classes with the units. Appending copies
/// them without a look.
ns::Object Made(ns::Object self, std::u16string_view units) {
    const auto borrowed = ns::New<BorrowedString>();
    StateOf<BorrowedState>(borrowed.get()).units = units;
    const auto string = ns::New<ns::MutableString>();
    string->appendString(borrowed);
    const ns::Object made = self.Is<ns::MutableString>() ? ns::Object(objc::Object{objc::Retain(string.get().pointer)})
                                                         : objc::Send<"copy", ns::Object>(string.get());
    objc::Release(self.pointer); // what alloc gave stands for nothing yet
    return made;
}

Original<ns::Object, ns::Object, const char16_t *, unsigned long> originalInit = nullptr;
Original<ns::Object, ns::Object, char16_t *, unsigned long, bool> originalInitNoCopy = nullptr;
Original<ns::Object, ns::Object, const void *, unsigned long, unsigned> originalInitBytes = nullptr;
Original<const char *, ns::Object> originalUtf8 = nullptr;
Original<const char *, ns::Object> originalMutableUtf8 = nullptr;

ns::Object Init(ns::Object self, objc::SEL selector, const char16_t *units, unsigned long length) {
    if (!IsPlain({units, length})) {
        return Made(self, {units, length});
    }
    return originalInit(self, selector, units, length);
}

ns::Object InitNoCopy(ns::Object self, objc::SEL selector, char16_t *units, unsigned long length, bool freeWhenDone) {
    if (!IsPlain({units, length})) {
        const ns::Object made = Made(self, {units, length});
        if (freeWhenDone) {
            std::free(units);
        }
        return made;
    }
    return originalInitNoCopy(self, selector, units, length, freeWhenDone);
}

/// Reached by all initialisers that decode bytes; only UTF-16 can hold what Foundation refuses.
ns::Object InitBytes(ns::Object self, objc::SEL selector, const void *bytes, unsigned long length, unsigned encoding) {
    const bool bigEndian = encoding == static_cast<unsigned>(NSUTF16BigEndianStringEncoding);
    if ((bigEndian || encoding == static_cast<unsigned>(NSUTF16LittleEndianStringEncoding)) && length != 0 &&
        length % 2 == 0) {
        std::u16string units(length / 2, u'\0');
        std::memcpy(units.data(), bytes, length);
        for (char16_t &unit : units) {
            unit = bigEndian ? __builtin_bswap16(unit) : unit;
        }
        return Init(self, objc::Selector<"initWithCharacters:length:">(), units.data(), units.size());
    }
    return originalInitBytes(self, selector, bytes, length, encoding);
}

/// Null where the text has no UTF-8 form.
const char *Utf8String(ns::Object self, objc::SEL selector) {
    const auto original = self.Is<ns::MutableString>() ? originalMutableUtf8 : originalUtf8;
    const char *text = nullptr;
    objc::Guard([&] { text = original(self, selector); });
    return text;
}

} // namespace

void InstallStringDifferences() {
    DefineBorrowedString();
    originalInit = ReplaceMethod("NSString", objc::Selector<"initWithCharacters:length:">(), &Init);
    originalInitNoCopy =
        ReplaceMethod("NSString", objc::Selector<"initWithCharactersNoCopy:length:freeWhenDone:">(), &InitNoCopy);
    originalInitBytes =
        ReplaceMethod("GSPlaceholderString", objc::Selector<"initWithBytes:length:encoding:">(), &InitBytes);
    originalUtf8 = ReplaceMethod("GSUnicodeString", objc::Selector<"UTF8String">(), &Utf8String);
    originalMutableUtf8 = ReplaceMethod("GSMutableString", objc::Selector<"UTF8String">(), &Utf8String);
}

} // namespace sim
