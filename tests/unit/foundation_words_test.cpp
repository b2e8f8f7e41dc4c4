// What objects of the simulated phone call themselves, and what they say when they raise.

#include "apple/foundation/collections.hpp"
#include "apple/foundation/data.hpp"
#include "apple/foundation/date.hpp"
#include "apple/foundation/number.hpp"
#include "objc/guard.hpp"
#include "runtime_support.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace corvel {
namespace {

class FoundationWords : public testing::Test {
    test::Pool pool_;
};

ns::Array ArrayOf(std::initializer_list<ns::Object> elements) {
    const auto array = ns::MutableArray::array();
    for (const ns::Object element : elements) {
        array.addObject(element);
    }
    return array;
}

ns::Dictionary DictionaryOf(std::initializer_list<std::pair<ns::Object, ns::Object>> entries) {
    const auto dictionary = ns::MutableDictionary::dictionary();
    for (const auto &[key, value] : entries) {
        dictionary.setObject(value, key);
    }
    return dictionary;
}

ns::Data DataOf(std::size_t length) {
    std::vector<unsigned char> bytes;
    for (std::size_t i = 0; i < length; ++i) {
        bytes.push_back(static_cast<unsigned char>(i));
    }
    return ns::Data::dataWithBytes(bytes.data(), length);
}

std::string Description(ns::Object object) {
    return objc::As<ns::String>(object.description()).UTF8String();
}

TEST_F(FoundationWords, ACollectionTakesALineForEachElement) {
    EXPECT_EQ(Description(DictionaryOf({{"roomId"_ns, ns::Number::numberWithInt(77)}, {"a"_ns, "b"_ns}})),
              "{\n    a = b;\n    roomId = 77;\n}");
    EXPECT_EQ(Description(ArrayOf({"a"_ns, ns::Number::numberWithInt(1)})), "(\n    a,\n    1\n)");
    EXPECT_EQ(Description(ArrayOf({})), "(\n)");
    EXPECT_EQ(Description(DictionaryOf({})), "{\n}");
}

TEST_F(FoundationWords, NestedCollectionsBeginWithTheirIndentation) {
    EXPECT_EQ(Description(DictionaryOf({{"room"_ns, DictionaryOf({{"id"_ns, "7"_ns}, {"tags"_ns, ArrayOf({"x"_ns})}})},
                                        {"none"_ns, DictionaryOf({})}})),
              "{\n"
              "    none =     {\n"
              "    };\n"
              "    room =     {\n"
              "        id = 7;\n"
              "        tags =         (\n"
              "            x\n"
              "        );\n"
              "    };\n"
              "}");
    EXPECT_EQ(Description(ArrayOf({ArrayOf({"a"_ns, "b"_ns}), "c"_ns})), "(\n"
                                                                         "        (\n"
                                                                         "        a,\n"
                                                                         "        b\n"
                                                                         "    ),\n"
                                                                         "    c\n"
                                                                         ")");
}

TEST_F(FoundationWords, TextInACollectionIsQuotedUnlessLettersAndDigitsAlone) {
    const auto element = [](ns::Object object) {
        const std::string whole = Description(ArrayOf({object}));
        return whole.substr(6, whole.size() - 8);
    };
    EXPECT_EQ(element("Abc019"_ns), "Abc019");
    EXPECT_EQ(element(""_ns), "\"\"");
    EXPECT_EQ(element("a b"_ns), "\"a b\"");
    EXPECT_EQ(element("first_name"_ns), "\"first_name\"");
    EXPECT_EQ(element("1.0"_ns), "\"1.0\"");
    EXPECT_EQ(element("\"\\\n"_ns), R"("\"\\\n")");
    EXPECT_EQ(element(u"弹é😀"_ns), R"("\U5f39\U00e9\Ud83d\Ude00")");
    EXPECT_EQ(element(ns::Number::numberWithInt(-1)), "\"-1\"");
    EXPECT_EQ(element(ns::Number::numberWithDouble(0.5)), "\"0.5\"");
    EXPECT_EQ(element(ns::Number::numberWithBool(true)), "1");
    EXPECT_EQ(element(ns::Null::null()), "\"<null>\"");
    EXPECT_EQ(element(DataOf(2)), "{length = 2, bytes = 0x0001}");
}

TEST_F(FoundationWords, DataShowsItsBytesOrBeginningAndEnd) {
    EXPECT_EQ(Description(DataOf(0)), "{length = 0, bytes = 0x}");
    EXPECT_EQ(Description(DataOf(24)), "{length = 24, bytes = 0x000102030405060708090a0b0c0d0e0f1011121314151617}");
    EXPECT_EQ(Description(DataOf(32)),
              "{length = 32, bytes = 0x00010203 04050607 08090a0b 0c0d0e0f ... 18191a1b 1c1d1e1f }");
}

template <class Work> std::string ReasonOf(const Work &work) {
    std::string text = "nothing raised";
    objc::Guard(work, [&text](objc::Object reason) { text = objc::As<ns::String>(reason).UTF8String(); });
    return text;
}

std::string Pointer(ns::Object object) {
    char text[24];
    std::snprintf(text, sizeof text, "%p", static_cast<const void *>(object.pointer));
    return text;
}

TEST_F(FoundationWords, WhatIsNotRecognizedNamesReceiverAndSelector) {
    const auto object = ns::New<ns::Object>();
    const ns::Object cls{objc::AsObject(objc::ClassOf<ns::Object>())};
    EXPECT_EQ(ReasonOf([&] { object->performSelector(objc::Selector<"corvelTestNothing">()); }),
              "-[NSObject corvelTestNothing]: unrecognized selector sent to instance " + Pointer(object));
    EXPECT_EQ(ReasonOf([&] { objc::Send<"corvelTestTyped:", long>(object.get(), 1.0); }),
              "-[NSObject corvelTestTyped:]: unrecognized selector sent to instance " + Pointer(object));
    EXPECT_EQ(ReasonOf([&] { objc::Send<"corvelTestTyped:", long>(cls, 1.0); }),
              "+[NSObject corvelTestTyped:]: unrecognized selector sent to class " + Pointer(cls));
}

TEST_F(FoundationWords, AnUndefinedKeyNamesReceiverAndKey) {
    const auto object = ns::New<ns::Object>();
    const std::string receiver = "[<NSObject " + Pointer(object) + "> ";
    EXPECT_EQ(ReasonOf([&] { object->valueForKey("zip"_ns); }),
              receiver + "valueForUndefinedKey:]: this class is not key value coding-compliant for the key zip.");
    EXPECT_EQ(ReasonOf([&] { objc::Send<"setValue:forKey:", void>(object.get(), ns::Object("x"_ns), "zip"_ns); }),
              receiver + "setValue:forUndefinedKey:]: this class is not key value coding-compliant for the key zip.");
}

} // namespace
} // namespace corvel
