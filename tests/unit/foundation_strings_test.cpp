// NSString of the simulated phone: every sequence of UTF-16 units is a string.

#include "apple/foundation/data.hpp"
#include "runtime/utf16.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace corvel {
namespace {

using sim::StringOf;
using sim::UnitsOf;

const std::u16string kOdd[] = {
    {0xD83D},                                // the first half of a pair
    {u'a', 0xDE00},                          // the second
    {0xDE00, 0xD83D},                        // both, the wrong way round
    {0xFEFF, u'a'},                          // a byte-order mark
    {0xFFFE, u'a', 0xFFFF},                  // units that are no characters
    {u'a', u'\0', u'b'},                     // a NUL
    {0xD83D, 0xD83D, 0xDE00, u'\0', 0xDC00}, // all together
};

TEST(FoundationString, KeepsTheUnitsItIsMadeOf) {
    for (const std::u16string &units : kOdd) {
        EXPECT_EQ(UnitsOf(StringOf(units)), units);
    }
}

TEST(FoundationString, KeepsTheUnitsOfItsBytes) {
    for (const std::u16string &units : kOdd) {
        for (const auto encoding : {NSUTF16BigEndianStringEncoding, NSUTF16LittleEndianStringEncoding}) {
            std::string bytes;
            for (const char16_t unit : units) {
                const char pair[] = {static_cast<char>(unit >> 8), static_cast<char>(unit)};
                const bool bigEndian = encoding == NSUTF16BigEndianStringEncoding;
                bytes += {pair[bigEndian ? 0 : 1], pair[bigEndian ? 1 : 0]};
            }
            const auto string = objc::Ref<ns::String>::Adopt(
                ns::Alloc<ns::String>().initWithData(ns::Data::dataWithBytes(bytes.data(), bytes.size()), encoding));
            EXPECT_EQ(UnitsOf(string.get()), units);
        }
    }
}

TEST(FoundationString, KeepsThemThroughItsOperations) {
    for (const std::u16string &units : kOdd) {
        const ns::String string = StringOf(units);
        EXPECT_EQ(UnitsOf(string.stringByAppendingString(string)), units + units);
        EXPECT_EQ(UnitsOf(string.substringFromIndex(1)), units.substr(1));
        EXPECT_EQ(UnitsOf(string.substringToIndex(1)), units.substr(0, 1));
        EXPECT_TRUE(string.isEqualToString(StringOf(units)));
        const auto text = ns::MutableString::string();
        text.appendString(string);
        EXPECT_EQ(UnitsOf(text), units);
        const objc::ArgumentSlot slots[] = {reinterpret_cast<objc::ArgumentSlot>(string.pointer)};
        EXPECT_EQ(UnitsOf(ns::Formatted("[%@]"_ns, slots).get()), u"[" + units + u"]");
    }
}

TEST(FoundationString, TakesOverABufferOfAnyUnits) {
    auto *buffer = static_cast<char16_t *>(std::malloc(2 * sizeof(char16_t)));
    buffer[0] = u'a';
    buffer[1] = 0xD800;
    const auto string = // NOLINTNEXTLINE(clang-analyzer-unix.Malloc): the string frees the buffer
        objc::Ref<ns::String>::Adopt(objc::Send<"initWithCharactersNoCopy:length:freeWhenDone:", ns::String>(
            ns::Alloc<ns::String>(), buffer, 2UL, true));
    EXPECT_EQ(UnitsOf(string.get()), (std::u16string{u'a', 0xD800}));
}

TEST(FoundationString, MutableOnesStayMutable) {
    const auto string = objc::Ref<ns::MutableString>::Adopt(
        objc::Send<"initWithCharacters:length:", ns::MutableString>(ns::Alloc<ns::MutableString>(), u"\xD800", 1UL));
    string->appendString("x"_ns);
    EXPECT_EQ(UnitsOf(string.get()), (std::u16string{0xD800, u'x'}));
}

TEST(FoundationString, HasUtf8TextOnlyForWholeCharacters) {
    EXPECT_STREQ(StringOf(u"弹😀").UTF8String(), "弹😀");
    EXPECT_EQ(StringOf(std::u16string{u'a', 0xD83D}).UTF8String(), nullptr);
    const auto text = ns::MutableString::string();
    text.appendString(StringOf(std::u16string{0xDE00}));
    EXPECT_EQ(text.UTF8String(), nullptr);
}

} // namespace
} // namespace corvel
