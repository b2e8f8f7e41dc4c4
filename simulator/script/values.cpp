#include "script/values.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/data.hpp"
#include "apple/foundation/date.hpp"
#include "apple/foundation/number.hpp"
#include "runtime/utf16.hpp"
#include "script/text.hpp"

#include <algorithm>
#include <charconv>
#include <map>

namespace sim::script {
namespace {

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
    return ns::Data::dataWithBytes(bytes.data(), bytes.size());
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
    const auto array = ns::MutableArray::array();
    words.Expect("[");
    while (!words.Take("]")) {
        array.addObject(ReadElement(words));
    }
    return array;
}

ns::Object ReadDictionary(WordReader &words) {
    const auto dictionary = ns::MutableDictionary::dictionary();
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
    {"int", [](WordReader &words) -> ns::Object { return ns::Number::numberWithLong(words.Integer("an integer")); }},
    {"float",
     [](WordReader &words) -> ns::Object {
         return ns::Number::numberWithFloat(static_cast<float>(words.Number("a number")));
     }},
    {"double", [](WordReader &words) -> ns::Object { return ns::Number::numberWithDouble(words.Number("a number")); }},
    {"bool", [](WordReader &words) -> ns::Object { return ns::Number::numberWithBool(ReadBool(words)); }},
    {"data", ReadData},
    {"date",
     [](WordReader &words) -> ns::Object { return ns::Date::dateWithTimeIntervalSince1970(words.Number("seconds")); }},
    {"array", ReadArray},
    {"dict", ReadDictionary},
    {"null", [](WordReader &) -> ns::Object { return ns::Null::null(); }},
    {"nil", [](WordReader &) { return ns::Object{}; }},
};

Fact DescribeNumber(ns::Number number) {
    const char type = *number.objCType();
    // Foundation's boolean numbers are characters; no other number of a store has that type.
    if (type == 'c' || type == 'C' || type == 'B') {
        return {Bare("bool"), Bare(number.intValue() != 0)};
    }
    if (type == 'f' || type == 'd') {
        return {Bare("float"), Bare(number.doubleValue())};
    }
    return {Bare("int"), Bare(number.longValue())};
}

Fact DescribeData(ns::Data data) {
    std::string hex;
    for (const unsigned char byte : std::span(static_cast<const unsigned char *>(data.bytes()), data.length())) {
        constexpr char kDigits[] = "0123456789ABCDEF";
        hex += kDigits[byte >> 4];
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
    return StringOf(ToUtf16(text).value_or(u"\uFFFD"));
}

std::string TextOf(ns::String string) {
    return ToUtf8(UnitsOf(string));
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
        return whole ? ns::Number::numberWithLong(static_cast<long>(number)) : ns::Number::numberWithDouble(number);
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
    if (value.Is<ns::String>()) {
        return {Text(TextOf(objc::As<ns::String>(value)))};
    }
    if (value.Is<ns::Number>()) {
        return DescribeNumber(objc::As<ns::Number>(value));
    }
    if (value.Is<ns::Data>()) {
        return DescribeData(objc::As<ns::Data>(value));
    }
    if (value.Is<ns::Date>()) {
        return {Bare("date"), Bare(objc::As<ns::Date>(value).timeIntervalSince1970())};
    }
    if (value.Is<ns::Array>()) {
        return DescribeArray(objc::As<ns::Array>(value));
    }
    if (value.Is<ns::Dictionary>()) {
        return DescribeDictionary(objc::As<ns::Dictionary>(value));
    }
    if (value.Is<ns::Null>()) {
        return {Bare("null")};
    }
    return {Bare("<" + ClassName(value) + ">")};
}

} // namespace sim::script
