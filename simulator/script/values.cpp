#include "script/values.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/data.hpp"
#include "apple/foundation/date.hpp"
#include "apple/foundation/number.hpp"
#include "script/text.hpp"

#include <algorithm>
#include <charconv>
#include <map>

namespace sim::script {
namespace {

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
    return objc::SendClass<ns::Data, "dataWithBytes:length:", ns::Object>(static_cast<const char *>(bytes.data()),
                                                                          static_cast<unsigned long>(bytes.size()));
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
    const auto array = objc::SendClass<ns::MutableArray, "array", ns::MutableArray>();
    words.Expect("[");
    while (!words.Take("]")) {
        array.addObject(ReadElement(words));
    }
    return array;
}

ns::Object ReadDictionary(WordReader &words) {
    const auto dictionary = objc::SendClass<ns::MutableDictionary, "dictionary", ns::MutableDictionary>();
    words.Expect("{");
    while (!words.Take("}")) {
        const ns::String key = MakeString(words.QuotedText("a key"));
        dictionary.setObject(ReadElement(words), key);
    }
    return dictionary;
}

/// A number that is written back as the type that it came in.
template <objc::FixedString Name, class T> ns::Object MakeNumber(T value) {
    return objc::SendClass<ns::Number, Name, ns::Object>(value);
}

struct Kind {
    std::string_view name;
    ns::Object (*read)(WordReader &words);
};

constexpr Kind kKinds[] = {
    {"string", [](WordReader &words) -> ns::Object { return MakeString(words.QuotedText("a text")); }},
    {"int", [](WordReader &words) { return MakeNumber<"numberWithLong:">(words.Integer("an integer")); }},
    {"float",
     [](WordReader &words) { return MakeNumber<"numberWithFloat:">(static_cast<float>(words.Number("a number"))); }},
    {"double", [](WordReader &words) { return MakeNumber<"numberWithDouble:">(words.Number("a number")); }},
    {"bool", [](WordReader &words) -> ns::Object { return ns::Number::numberWithBool(ReadBool(words)); }},
    {"data", ReadData},
    {"date",
     [](WordReader &words) {
         return objc::SendClass<ns::Date, "dateWithTimeIntervalSince1970:", ns::Object>(words.Number("seconds"));
     }},
    {"array", ReadArray},
    {"dict", ReadDictionary},
    {"null", [](WordReader &) -> ns::Object { return objc::SendClass<ns::Null, "null", ns::Object>(); }},
    {"nil", [](WordReader &) { return ns::Object{}; }},
};

Fact DescribeNumber(ns::Number number) {
    const char type = *objc::Send<"objCType", const char *>(number);
    // Foundation's boolean numbers are characters; no other number of a store has that type.
    if (type == 'c' || type == 'C' || type == 'B') {
        return {Bare("bool"), Bare(number.intValue() != 0)};
    }
    if (type == 'f' || type == 'd') {
        return {Bare("float"), Bare(number.doubleValue())};
    }
    return {Bare("int"), Bare(objc::Send<"longValue", long>(number))};
}

Fact DescribeData(ns::Data data) {
    std::string bytes(data.length(), '\0');
    data.getBytes(bytes.data(), bytes.size());
    std::string hex;
    for (const char byte : bytes) {
        constexpr char kDigits[] = "0123456789ABCDEF";
        hex += kDigits[static_cast<unsigned char>(byte) >> 4];
        hex += kDigits[byte & 15];
    }
    return {Bare("data"), Bare(hex.empty() ? "empty" : hex)};
}

Fact DescribeArray(ns::ArrayOf<ns::Object> array) {
    Fact fact{Bare("[")};
    for (const ns::Object element : array) {
        Append(fact, DescribeValue(element));
    }
    fact.push_back(Bare("]"));
    return fact;
}

Fact DescribeDictionary(ns::Dictionary dictionary) {
    std::multimap<std::string, ns::Object> entries; // a number and a text may read alike
    for (const ns::Object key : dictionary.allKeys()) {
        entries.emplace(PlainText(DescribeValue(key)), dictionary.objectForKey(key));
    }
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

std::string ClassName(ns::Object object) {
    return class_getName(objc::object_getClass(object.pointer));
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
        return whole ? MakeNumber<"numberWithLong:">(static_cast<long>(number))
                     : MakeNumber<"numberWithDouble:">(number);
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
        return DescribeNumber(objc::As<ns::Number>(value));
    }
    if (IsKindOf<ns::Data>(value)) {
        return DescribeData(objc::As<ns::Data>(value));
    }
    if (IsKindOf<ns::Date>(value)) {
        return {Bare("date"), Bare(objc::Send<"timeIntervalSince1970", double>(objc::As<ns::Date>(value)))};
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
    return {Bare("<" + ClassName(value) + ">")};
}

} // namespace sim::script
