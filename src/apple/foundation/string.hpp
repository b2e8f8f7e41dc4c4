#pragma once
// NSString, its mutable form, and constant strings.

#include "apple/foundation/object.hpp"
#include "objc/constant_string.hpp"
#include "objc/varargs.hpp"

namespace ns {

/// NSRange: UTF-16 units.
struct Range {
    unsigned long location = 0;
    unsigned long length = 0;
};
} // namespace ns

enum NSStringEncoding : unsigned long {
    NSUTF8StringEncoding = 4,
    NSUTF16BigEndianStringEncoding = 0x90000100,
    NSUTF16LittleEndianStringEncoding = 0x94000100,
    NSUTF32BigEndianStringEncoding = 0x98000100,
    NSUTF32LittleEndianStringEncoding = 0x9c000100,
};

template <> struct objc::Encode<ns::Range> {
    static constexpr FixedString value{"{_NSRange=QQ}"};
};

namespace ns {

struct Data;

struct String : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSString";

    String initWithData(Data data, NSStringEncoding encoding) const;
    /// The text's bytes; nil when it cannot be written in the encoding, as a lone surrogate cannot.
    Data dataUsingEncoding(NSStringEncoding encoding) const;

    unsigned long length() const {
        return objc::Send<"length", unsigned long>(*this);
    }
    char16_t characterAtIndex(unsigned long index) const {
        return objc::Send<"characterAtIndex:", char16_t>(*this, index);
    }
    void getCharacters(char16_t *buffer, Range range) const {
        objc::Send<"getCharacters:range:", void>(*this, buffer, range);
    }
    bool hasPrefix(String prefix) const {
        return objc::Send<"hasPrefix:", bool>(*this, prefix);
    }
    bool containsString(String part) const {
        return objc::Send<"containsString:", bool>(*this, part);
    }
    bool isEqualToString(String other) const {
        return objc::Send<"isEqualToString:", bool>(*this, other);
    }
    String substringFromIndex(unsigned long index) const {
        return objc::Send<"substringFromIndex:", String>(*this, index);
    }
    String substringToIndex(unsigned long index) const {
        return objc::Send<"substringToIndex:", String>(*this, index);
    }
    String substringWithRange(Range range) const {
        return objc::Send<"substringWithRange:", String>(*this, range);
    }
    String stringByAppendingString(String tail) const {
        return objc::Send<"stringByAppendingString:", String>(*this, tail);
    }
    String stringByReplacingOccurrencesOfString(String part, String replacement) const {
        return objc::Send<"stringByReplacingOccurrencesOfString:withString:", String>(*this, part, replacement);
    }
    Range rangeOfComposedCharacterSequenceAtIndex(unsigned long index) const {
        return objc::Send<"rangeOfComposedCharacterSequenceAtIndex:", Range>(*this, index);
    }
    /// The range with whole characters, as readers see them, at both ends; for an empty one the character at its place,
    /// and nothing at the end of the text.
    Range rangeOfComposedCharacterSequencesForRange(Range range) const {
        return objc::Send<"rangeOfComposedCharacterSequencesForRange:", Range>(*this, range);
    }
    /// The number that the text begins with, 0 when it begins with none; the nearest that fits when it is too large.
    long integerValue() const {
        return objc::Send<"integerValue", long>(*this);
    }
    float floatValue() const {
        return objc::Send<"floatValue", float>(*this);
    }
    const char *UTF8String() const {
        return objc::Send<"UTF8String", const char *>(*this);
    }
    static String stringWithUTF8String(const char *text) {
        return objc::SendClass<String, "stringWithUTF8String:", String>(text);
    }
    static String stringWithCharacters(const char16_t *units, unsigned long length) {
        return objc::SendClass<String, "stringWithCharacters:length:", String>(units, length);
    }
};

/// A constant string in a table: a string wherever one is wanted.
struct Literal : objc::StringLiteral {
    constexpr Literal() = default;
    constexpr explicit Literal(objc::StringLiteral literal) : objc::StringLiteral(literal) {}
    // NOLINTNEXTLINE(google-explicit-constructor): a literal passes wherever its string does
    operator String() const {
        return String{get()};
    }
};

struct MutableString : String {
    using String::String;
    static constexpr const char *kClassName = "NSMutableString";

    static MutableString string() {
        return objc::SendClass<MutableString, "string", MutableString>();
    }
    void appendString(String tail) const {
        objc::Send<"appendString:", void>(*this, tail);
    }
};

/// A string formatted with eight-byte argument slots; there must be one for each conversion of the format.
inline objc::Ref<String> Formatted(String format, const objc::ArgumentSlot *arguments) {
    objc::ArgumentList list(arguments);
    return objc::Ref<String>::Adopt(
        objc::Send<"initWithFormat:arguments:", String>(Alloc<String>(), format, list.get()));
}

} // namespace ns

/// The constant string of a literal: "plain"_ns for ASCII, u"弹"_ns for any other text.
template <objc::FixedString Text> ns::String operator""_ns() {
    return ns::String{objc::ConstantString<Text>()};
}

/// The same for tables that are made at compile time.
template <objc::FixedString Text> constexpr ns::Literal operator""_literal() {
    return ns::Literal{objc::StringLiteral::Of<Text>()};
}
