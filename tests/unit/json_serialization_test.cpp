// NSJSONSerialization of the simulated phone.

#include "apple/foundation/collections.hpp"
#include "apple/foundation/json_serialization.hpp"
#include "apple/foundation/number.hpp"
#include "objc/guard.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <string_view>

namespace corvel {
namespace {

using Json = ns::JSONSerialization;

ns::Data BytesOf(std::string_view bytes) {
    return ns::Data::dataWithBytes(bytes.data(), bytes.size());
}

ns::Object Parse(std::string_view bytes, unsigned long options = 0) {
    ns::Object error;
    const auto object = Json::JSONObjectWithData(BytesOf(bytes), options, &error);
    EXPECT_NE(static_cast<bool>(object), static_cast<bool>(error)) << bytes;
    return object;
}

ns::Object Member(std::string_view text, ns::String key = "k"_ns) {
    return objc::As<ns::Dictionary>(Parse(text)).objectForKey(key);
}

std::string Written(ns::Object object, unsigned long options = 0) {
    ns::Object error;
    const auto data = Json::dataWithJSONObject(object, options, &error);
    if (!data) {
        return error ? "(error)" : "(nothing)";
    }
    return {static_cast<const char *>(data.bytes()), data.length()};
}

std::string Reason(ns::Object object, unsigned long options = 0) {
    std::string reason = "(none)";
    objc::Guard([&] { Written(object, options); },
                [&](objc::Object text) { reason = objc::As<ns::String>(text).UTF8String(); });
    return reason;
}

ns::Object DictionaryWith(ns::Object value) {
    return ns::Dictionary::dictionaryWithObject(value, "k"_ns);
}

TEST(JsonReading, GivesFoundationObjects) {
    EXPECT_TRUE(Member(R"({"k":"text"})").isEqual(ns::Object("text"_ns)));
    EXPECT_TRUE(Member(R"({"k":null})").Is<ns::Null>());
    EXPECT_EQ(objc::As<ns::Array>(Member(R"( { "k" : [ 1 , 2 ] } )")).count(), 2UL);
    EXPECT_EQ(objc::As<ns::Dictionary>(Parse("{}")).allKeys().count(), 0UL);
    EXPECT_EQ(objc::As<ns::Array>(Parse("[]")).count(), 0UL);
}

TEST(JsonReading, KeepsTheKindOfANumber) {
    EXPECT_STRNE(objc::As<ns::Number>(Member(R"({"k":1})")).objCType(), "d");
    EXPECT_STREQ(objc::As<ns::Number>(Member(R"({"k":1.0})")).objCType(), "d");
    EXPECT_EQ(objc::As<ns::Number>(Member(R"({"k":9223372036854775807})")).longValue(), INT64_MAX);
    EXPECT_EQ(objc::As<ns::Number>(Member(R"({"k":-1.5e2})")).floatValue(), -150.0F);
    EXPECT_EQ(Written(Parse(R"([true,1,1.5])")), "[true,1,1.5]");
}

TEST(JsonReading, UndoesEscapes) {
    const auto text = objc::As<ns::String>(Member(R"({"k":"\"\\\/\b\f\n\r\t\u5f39\uD83D\uDE00\u0000"})"));
    constexpr std::u16string_view kExpected = u"\"\\/\b\f\n\r\t弹😀";
    ASSERT_EQ(text.length(), kExpected.size() + 1);
    for (std::size_t i = 0; i < kExpected.size(); ++i) {
        EXPECT_EQ(text.characterAtIndex(i), kExpected[i]) << i;
    }
    EXPECT_EQ(text.characterAtIndex(kExpected.size()), u'\0');
}

TEST(JsonReading, RefusesWhatIsNoJson) {
    for (const char *text : {"",
                             " ",
                             "{",
                             "[",
                             "[1",
                             "nope",
                             "{a:1}",
                             "{'a':1}",
                             "{\"a\"}",
                             "{\"a\":}",
                             "{\"a\":1,}",
                             "[1,]",
                             "[,1]",
                             "{\"a\":1}x",
                             "[1] [2]",
                             "[01]",
                             "[-]",
                             "[1.]",
                             "[.5]",
                             "[1e]",
                             "[+1]",
                             "[1e400]",
                             "[tru]",
                             R"(["\x"])",
                             R"(["\u12g4"])",
                             R"(["\ud800"])",
                             R"(["\udc00"])",
                             R"(["\ud800\u0041"])",
                             "[\"a\nb\"]",
                             "[\"open]",
                             "[\"\xff\"]",
                             "[nan]",
                             "// comment\n[]"}) {
        EXPECT_FALSE(Parse(text)) << text;
    }
    EXPECT_FALSE(Parse(std::string_view("[\0]", 3)));
    EXPECT_FALSE(Parse(std::string_view("[]\0x", 4)));
}

TEST(JsonReading, WantsAContainerUnlessFragmentsAreAllowed) {
    EXPECT_FALSE(Parse("\"text\""));
    EXPECT_FALSE(Parse("12"));
    EXPECT_TRUE(Parse("12", NSJSONReadingFragmentsAllowed).isEqual(ns::Object(ns::Number::numberWithInt(12))));
}

TEST(JsonReading, StopsAtALevelThatNoHonestTextHas) {
    const auto nested = [](std::size_t levels) { return std::string(levels, '[') + std::string(levels, ']'); };
    EXPECT_TRUE(Parse(nested(512)));
    EXPECT_FALSE(Parse(nested(513)));
    EXPECT_FALSE(Parse(std::string(200000, '[')));
}

TEST(JsonReading, KnowsTheUnicodeEncodings) {
    EXPECT_TRUE(Parse("\xEF\xBB\xBF[1]"));
    EXPECT_TRUE(Parse(std::string_view("[\0001\0]\0", 6)));
    EXPECT_TRUE(Parse(std::string_view("\0[\0001\0]", 6)));
    EXPECT_TRUE(Parse(std::string_view("\xFF\xFE[\0]\0", 6)));
}

TEST(JsonReading, ContainersAreMutableOnlyOnRequest) {
    const auto add = [](ns::Object array) {
        return objc::Guard([&] { objc::As<ns::MutableArray>(array).addObject("x"_ns); });
    };
    EXPECT_FALSE(add(Parse("[]")));
    EXPECT_TRUE(add(Parse("[]", 1)));
}

TEST(JsonReading, RaisesForNoData) {
    EXPECT_FALSE(objc::Guard([] { Json::JSONObjectWithData(nullptr, 0, nullptr); }));
}

TEST(JsonWriting, IsCompact) {
    const auto object = Parse(R"({"a" : [1, 2, {"b" : null}], "c" : ""})");
    EXPECT_EQ(Written(object, NSJSONWritingSortedKeys), R"({"a":[1,2,{"b":null}],"c":""})");
    EXPECT_EQ(Written(Parse("{}")), "{}");
    EXPECT_EQ(Written(Parse("[]")), "[]");
}

TEST(JsonWriting, TellsBooleansFromNumbers) {
    EXPECT_EQ(Written(DictionaryWith(ns::Number::numberWithBool(true))), R"({"k":true})");
    EXPECT_EQ(Written(DictionaryWith(ns::Number::numberWithBool(false))), R"({"k":false})");
    EXPECT_EQ(Written(DictionaryWith(ns::Number::numberWithInt(1))), R"({"k":1})");
    EXPECT_EQ(Written(DictionaryWith(ns::Number::numberWithDouble(1.0))), R"({"k":1})");
    EXPECT_EQ(Written(DictionaryWith(ns::Number::numberWithFloat(0.75F))), R"({"k":0.75})");
}

TEST(JsonWriting, EscapesWhatMustBeAndSlashes) {
    EXPECT_EQ(Written(Parse("[\"\\\"\\\\/\\b\\f\\n\\r\\t\\u0001\\u001f\\u007f\"]")),
              "[\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u0001\\u001f\x7f\"]");
    EXPECT_EQ(Written(Parse("[\"/\"]"), NSJSONWritingWithoutEscapingSlashes), "[\"/\"]");
}

TEST(JsonWriting, LeavesOtherTextAsItIs) {
    EXPECT_EQ(Written(Parse("[\"é弹😀\"]")), "[\"é弹😀\"]");
    EXPECT_EQ(Written(Parse("[\"\\ufeff\\ufeff\\uffff\"]")), "[\"\xEF\xBB\xBF\xEF\xBB\xBF\xEF\xBF\xBF\"]");
}

TEST(JsonWriting, PrettyPrintingBreaksLines) {
    EXPECT_EQ(Written(Parse(R"({"a":[1,2],"b":{}})"), NSJSONWritingPrettyPrinted | NSJSONWritingSortedKeys),
              "{\n  \"a\" : [\n    1,\n    2\n  ],\n  \"b\" : {}\n}");
}

TEST(JsonWriting, RaisesForWhatHasNoJsonForm) {
    EXPECT_EQ(Reason("text"_ns), "Invalid top-level type in JSON write");
    EXPECT_EQ(Reason("text"_ns, NSJSONWritingFragmentsAllowed), "(none)");
    EXPECT_NE(Reason(DictionaryWith(ns::Object(BytesOf("x")))).find("Invalid type in JSON write"), std::string::npos);
    EXPECT_NE(Reason(DictionaryWith(ns::Number::numberWithDouble(std::nan("")))).find("NaN"), std::string::npos);
    EXPECT_NE(Reason(ns::Dictionary::dictionaryWithObject("v"_ns, ns::Number::numberWithInt(1))).find("non-string"),
              std::string::npos);
    EXPECT_NE(Reason(nullptr), "(none)");
}

TEST(JsonWriting, TextWithoutUtf8FormIsAnError) {
    constexpr char16_t kHalf[] = {0xD83D};
    EXPECT_EQ(Written(DictionaryWith(ns::Object(ns::String::stringWithCharacters(kHalf, 1)))), "(error)");
}

TEST(JsonWriting, ValidityIsAskedWithoutRaising) {
    const auto valid = [](ns::Object object) { return objc::SendClass<Json, "isValidJSONObject:", bool>(object); };
    EXPECT_TRUE(valid(Parse("[1]")));
    EXPECT_FALSE(valid("text"_ns));
    EXPECT_FALSE(valid(nullptr));
    EXPECT_FALSE(valid(DictionaryWith(ns::Object(BytesOf("x")))));
}

} // namespace
} // namespace corvel
