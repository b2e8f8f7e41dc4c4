#include "runtime/string_differences.hpp"

#include "apple/foundation/string.hpp"
#include "objc/guard.hpp"
#include "runtime/native_class.hpp"
#include "runtime/replace_method.hpp"
#include "runtime/utf16.hpp"

#include <cstdlib>
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
        } else if (IsHighSurrogate(units[i]) || IsLowSurrogate(units[i])) {
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

unsigned long BorrowedLength(BorrowedString self, objc::SEL) {
    return StateOf<BorrowedState>(self).units.size();
}

char16_t BorrowedCharacter(BorrowedString self, objc::SEL, unsigned long index) {
    return StateOf<BorrowedState>(self).units[index];
}

void BorrowedCharacters(BorrowedString self, objc::SEL, char16_t *buffer, ns::Range range) {
    StateOf<BorrowedState>(self).units.copy(buffer, range.length, range.location);
}

/// The units as an owned string of Foundation's own classes: appending copies without looking at them.
objc::id MakeString(std::u16string_view units, bool isMutable) {
    const auto borrowed = ns::New<BorrowedString>();
    StateOf<BorrowedState>(borrowed.get()).units = units;
    auto string = ns::New<ns::MutableString>();
    string->appendString(borrowed);
    if (isMutable) {
        return objc::Retain(string.get().pointer);
    }
    return objc::Send<"copy", ns::String>(ns::String(string.get())).pointer;
}

objc::IMP originalInit = nullptr;
objc::IMP originalInitNoCopy = nullptr;
objc::IMP originalMutableInitNoCopy = nullptr;
objc::IMP originalInitBytes = nullptr;
objc::IMP originalUtf8 = nullptr;
objc::IMP originalMutableUtf8 = nullptr;

bool IsMutable(objc::Object string) {
    for (objc::Class cls = objc::object_getClass(string.pointer); cls != nullptr; cls = class_getSuperclass(cls)) {
        if (cls == objc::ClassOf<ns::MutableString>()) {
            return true;
        }
    }
    return false;
}

objc::Object Init(objc::Object self, objc::SEL selector, const char16_t *units, unsigned long length) {
    if (length == 0 || IsPlain({units, length})) {
        using Original = objc::Object (*)(objc::Object, objc::SEL, const char16_t *, unsigned long);
        return reinterpret_cast<Original>(originalInit)(self, selector, units, length);
    }
    const objc::Object made{MakeString({units, length}, IsMutable(self))};
    objc::Release(self.pointer); // what alloc gave stands for nothing yet
    return made;
}

objc::Object InitNoCopy(objc::Object self, objc::SEL selector, char16_t *units, unsigned long length,
                        bool freeWhenDone) {
    if (length == 0 || IsPlain({units, length})) {
        using Original = objc::Object (*)(objc::Object, objc::SEL, char16_t *, unsigned long, bool);
        const auto original =
            reinterpret_cast<Original>(IsMutable(self) ? originalMutableInitNoCopy : originalInitNoCopy);
        return original(self, selector, units, length, freeWhenDone);
    }
    const objc::Object made{MakeString({units, length}, IsMutable(self))};
    objc::Release(self.pointer);
    if (freeWhenDone) {
        std::free(units);
    }
    return made;
}

constexpr unsigned kUtf16BigEndian = 0x90000100;
constexpr unsigned kUtf16LittleEndian = 0x94000100;

/// Reached by all initialisers that decode bytes; only UTF-16 can hold what Foundation refuses.
objc::Object InitBytes(objc::Object self, objc::SEL selector, const void *bytes, unsigned long length,
                       unsigned encoding) {
    if ((encoding == kUtf16BigEndian || encoding == kUtf16LittleEndian) && length % 2 == 0) {
        std::u16string units;
        for (unsigned long i = 0; i < length; i += 2) {
            const auto *pair = static_cast<const unsigned char *>(bytes) + i;
            const unsigned first = encoding == kUtf16BigEndian ? pair[0] : pair[1];
            const unsigned second = encoding == kUtf16BigEndian ? pair[1] : pair[0];
            units.push_back(static_cast<char16_t>(first << 8 | second));
        }
        return Init(self, objc::Selector<"initWithCharacters:length:">(), units.data(), units.size());
    }
    using Original = objc::Object (*)(objc::Object, objc::SEL, const void *, unsigned long, unsigned);
    return reinterpret_cast<Original>(originalInitBytes)(self, selector, bytes, length, encoding);
}

/// Null where the text has no UTF-8 form.
const char *Utf8String(objc::Object self, objc::SEL selector) {
    const auto original = reinterpret_cast<const char *(*)(objc::Object, objc::SEL)>(
        IsMutable(self) ? originalMutableUtf8 : originalUtf8);
    const char *text = nullptr;
    objc::Guard([&] { text = original(self, selector); });
    return text;
}

} // namespace

void InstallStringDifferences() {
    const objc::MethodEntry methods[] = {objc::MethodNamed<"length", &BorrowedLength>(),
                                         objc::MethodNamed<"characterAtIndex:", &BorrowedCharacter>(),
                                         objc::MethodNamed<"getCharacters:range:", &BorrowedCharacters>()};
    RegisterClassWithState<BorrowedState>(BorrowedString::kClassName, "NSString", methods);
    originalInit = ReplaceMethod("NSString", objc::Selector<"initWithCharacters:length:">(), &Init);
    originalInitNoCopy =
        ReplaceMethod("NSString", objc::Selector<"initWithCharactersNoCopy:length:freeWhenDone:">(), &InitNoCopy);
    originalMutableInitNoCopy = ReplaceMethod(
        "GSMutableString", objc::Selector<"initWithCharactersNoCopy:length:freeWhenDone:">(), &InitNoCopy);
    originalInitBytes =
        ReplaceMethod("GSPlaceholderString", objc::Selector<"initWithBytes:length:encoding:">(), &InitBytes);
    originalUtf8 = ReplaceMethod("GSUnicodeString", objc::Selector<"UTF8String">(), &Utf8String);
    originalMutableUtf8 = ReplaceMethod("GSMutableString", objc::Selector<"UTF8String">(), &Utf8String);
}

} // namespace sim
