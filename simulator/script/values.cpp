#include "script/values.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/number.hpp"
#include "script/text.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

namespace sim::script {
namespace {

struct Data : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "NSData";

    static Data dataWithBytes(const void *bytes, unsigned long length) {
        return objc::SendClass<Data, "dataWithBytes:length:", Data>(static_cast<const char *>(bytes), length);
    }
    const char *bytes() const {
        return objc::Send<"bytes", const char *>(*this);
    }
    unsigned long length() const {
        return objc::Send<"length", unsigned long>(*this);
    }
};

struct Date : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "NSDate";

    static Date dateWithTimeIntervalSince1970(double seconds) {
        return objc::SendClass<Date, "dateWithTimeIntervalSince1970:", Date>(seconds);
    }
    double timeIntervalSince1970() const {
        return objc::Send<"timeIntervalSince1970", double>(*this);
    }
};

struct MutableArray : ns::Array {
    using ns::Array::Array;
    static constexpr const char *kClassName = "NSMutableArray";

    static MutableArray array() {
        return objc::SendClass<MutableArray, "array", MutableArray>();
    }
    void addObject(ns::Object object) const {
        objc::Send<"addObject:", void>(*this, object);
    }
};

struct MutableDictionary : ns::Dictionary {
    using ns::Dictionary::Dictionary;
    static constexpr const char *kClassName = "NSMutableDictionary";

    static MutableDictionary dictionary() {
        return objc::SendClass<MutableDictionary, "dictionary", MutableDictionary>();
    }
    void setObject(ns::Object object, ns::Object key) const {
        objc::Send<"setObject:forKey:", void>(*this, object, key);
    }
};

struct TypedNumber : ns::Number {
    using ns::Number::Number;

    static ns::Object WithLong(long value) {
        return objc::SendClass<TypedNumber, "numberWithLong:", ns::Object>(value);
    }
    static ns::Object WithFloat(float value) {
        return objc::SendClass<TypedNumber, "numberWithFloat:", ns::Object>(value);
    }
    static ns::Object WithDouble(double value) {
        return objc::SendClass<TypedNumber, "numberWithDouble:", ns::Object>(value);
    }
    const char *objCType() const {
        return objc::Send<"objCType", const char *>(*this);
    }
    double doubleValue() const {
        return objc::Send<"doubleValue", double>(*this);
    }
    long longValue() const {
        return objc::Send<"longValue", long>(*this);
    }
};

template <class T> bool IsKindOf(ns::Object object) {
    return object.isKindOfClass(objc::ClassOf<T>());
}

bool ReadBool(WordReader &words) {
    if (words.Take("true") || words.Take("YES")) {
        return true;
    }
    if (words.Take("false") || words.Take("NO")) {
        return false;
    }
    words.Fail("expected true or false");
}

ns::Object ReadData(WordReader &words) {
    const std::string &hex = words.Name("the bytes in hexadecimal (or empty)");
    std::string bytes;
    if (hex != "empty") {
        for (std::size_t i = 0; i < hex.size(); i += 2) {
            unsigned value = 0;
            const char *end = hex.data() + std::min(i + 2, hex.size());
            const auto [stop, error] = std::from_chars(hex.data() + i, end, value, 16);
            if (error != std::errc() || stop != hex.data() + i + 2) {
                words.Fail("expected pairs of hexadecimal digits, not " + hex);
            }
            bytes.push_back(static_cast<char>(value));
        }
    }
    return Data::dataWithBytes(bytes.data(), bytes.size());
}

/// A collection's elements end at the closing word; nil has no place in one.
ns::Object ReadElement(WordReader &words) {
    const ns::Object value = ReadValue(words);
    if (!value) {
        words.Fail("nil has no place in a collection");
    }
    return value;
}

ns::Object ReadArray(WordReader &words) {
    const MutableArray array = MutableArray::array();
    words.Expect("[");
    while (!words.Take("]")) {
        array.addObject(ReadElement(words));
    }
    return array;
}

ns::Object ReadDictionary(WordReader &words) {
    const MutableDictionary dictionary = MutableDictionary::dictionary();
    words.Expect("{");
    while (!words.Take("}")) {
        const ns::String key = MakeString(words.QuotedText("a key"));
        dictionary.setObject(ReadElement(words), key);
    }
    return dictionary;
}

struct Kind {
    std::string_view name;
    ns::Object (*read)(WordReader &words);
};

constexpr Kind kKinds[] = {
    {"string", [](WordReader &words) -> ns::Object { return MakeString(words.QuotedText("a text")); }},
    {"int", [](WordReader &words) { return TypedNumber::WithLong(words.Integer("an integer")); }},
    {"float", [](WordReader &words) { return TypedNumber::WithFloat(static_cast<float>(words.Number("a number"))); }},
    {"double", [](WordReader &words) { return TypedNumber::WithDouble(words.Number("a number")); }},
    {"bool", [](WordReader &words) -> ns::Object { return ns::Number::numberWithBool(ReadBool(words)); }},
    {"data", ReadData},
    {"date",
     [](WordReader &words) -> ns::Object { return Date::dateWithTimeIntervalSince1970(words.Number("seconds")); }},
    {"array", ReadArray},
    {"dict", ReadDictionary},
    {"null", [](WordReader &) -> ns::Object { return objc::SendClass<ns::Null, "null", ns::Object>(); }},
    {"nil", [](WordReader &) { return ns::Object{}; }},
};

Fact DescribeNumber(TypedNumber number) {
    const char *type = number.objCType();
    // Foundation's boolean numbers are characters; no other number of a store has that type.
    if (std::strchr("cCB", *type) != nullptr) {
        return {Bare("bool"), Bare(number.longValue() != 0 ? "true" : "false")};
    }
    if (std::strchr("fd", *type) != nullptr) {
        return {Bare("float"), Bare(number.doubleValue())};
    }
    return {Bare("int"), Bare(std::to_string(number.longValue()))};
}

Fact DescribeData(Data data) {
    std::string hex;
    const char *bytes = data.bytes();
    for (unsigned long i = 0; i < data.length(); ++i) {
        constexpr char kDigits[] = "0123456789ABCDEF";
        const auto byte = static_cast<unsigned char>(bytes[i]);
        hex += kDigits[byte >> 4];
        hex += kDigits[byte & 15];
    }
    return {Bare("data"), Bare(hex.empty() ? "empty" : hex)};
}

void Append(Fact &fact, const Fact &more) {
    fact.insert(fact.end(), more.begin(), more.end());
}

Fact DescribeArray(ns::Array array) {
    Fact fact{Bare("[")};
    for (unsigned long i = 0; i < array.count(); ++i) {
        Append(fact, DescribeValue(array.objectAtIndex(i)));
    }
    fact.push_back(Bare("]"));
    return fact;
}

Fact DescribeDictionary(ns::Dictionary dictionary) {
    std::vector<std::pair<std::string, ns::Object>> entries;
    const ns::Array keys = dictionary.allKeys();
    for (unsigned long i = 0; i < keys.count(); ++i) {
        const ns::Object key = keys.objectAtIndex(i);
        entries.emplace_back(PlainText(DescribeValue(key)), dictionary.objectForKey(key));
    }
    std::ranges::sort(entries, {}, &std::pair<std::string, ns::Object>::first);
    Fact fact{Bare("{")};
    for (const auto &[key, value] : entries) {
        fact.push_back(Text(key));
        Append(fact, DescribeValue(value));
    }
    fact.push_back(Bare("}"));
    return fact;
}

} // namespace

ns::String MakeString(std::string_view text) {
    const std::u16string units = ToUtf16(text).value_or(u"\uFFFD");
    return ns::String::stringWithCharacters(units.data(), units.size());
}

std::string TextOf(ns::String string) {
    std::u16string units(string.length(), u'\0');
    if (!units.empty()) {
        string.getCharacters(units.data(), {0, units.size()});
    }
    return ToUtf8(units);
}

bool SeesValue(const WordReader &words) {
    return words.SeesText() || words.SeesNumber() ||
           std::ranges::any_of(kKinds, [&words](const Kind &kind) { return words.Sees(kind.name); });
}

ns::Object ReadValue(WordReader &words) {
    if (words.SeesText()) {
        return MakeString(words.QuotedText("a text"));
    }
    if (words.SeesNumber()) {
        const double number = words.Number("a number");
        const bool whole = number == static_cast<double>(static_cast<long>(number));
        return whole ? TypedNumber::WithLong(static_cast<long>(number)) : TypedNumber::WithDouble(number);
    }
    for (const Kind &kind : kKinds) {
        if (words.Take(kind.name)) {
            return kind.read(words);
        }
    }
    words.Fail(words.AtEnd() ? "expected a value" : "unknown kind of value " + Render({&words.Next("a value"), 1}));
}

Fact DescribeValue(ns::Object value) {
    if (!value) {
        return {Bare("nil")};
    }
    if (IsKindOf<ns::String>(value)) {
        return {Text(TextOf(objc::As<ns::String>(value)))};
    }
    if (IsKindOf<ns::Number>(value)) {
        return DescribeNumber(objc::As<TypedNumber>(value));
    }
    if (IsKindOf<Data>(value)) {
        return DescribeData(objc::As<Data>(value));
    }
    if (IsKindOf<Date>(value)) {
        return {Bare("date"), Bare(objc::As<Date>(value).timeIntervalSince1970())};
    }
    if (IsKindOf<ns::Array>(value)) {
        return DescribeArray(objc::As<ns::Array>(value));
    }
    if (IsKindOf<ns::Dictionary>(value)) {
        return DescribeDictionary(objc::As<ns::Dictionary>(value));
    }
    if (IsKindOf<ns::Null>(value)) {
        return {Bare("null")};
    }
    return {Bare(std::string("<") + class_getName(objc::object_getClass(value.pointer)) + ">")};
}

} // namespace sim::script
