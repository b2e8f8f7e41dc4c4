// The formatter under the log: a format may hold a user's text, so most of these formats are hostile.

#include "diagnostics/format.hpp"

#include "runtime_support.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace corvel {
namespace {

ns::String StringOf(const std::u16string &units) {
    return ns::String::stringWithCharacters(units.data(), units.size());
}

std::u16string UnitsOf(ns::String string) {
    std::u16string units(string.length(), u'\0');
    string.getCharacters(units.data(), {0, units.size()});
    return units;
}

template <class... A> std::u16string Expanded(const std::u16string &format, const A &...arguments) {
    return UnitsOf(FormatString(StringOf(format), arguments...));
}

std::u16string Repeated(const std::u16string &part, int count) {
    std::u16string whole;
    for (int i = 0; i < count; ++i) {
        whole += part;
    }
    return whole;
}

class Format : public testing::Test {
    test::Pool pool_;
};

TEST_F(Format, WhatOurOwnLinesUse) {
    const auto owned = ns::New<ns::Object>();
    EXPECT_EQ(Expanded(u"[%@] %@ %@", u"弹幕"_ns, owned, ns::String{}),
              u"[弹幕] " + UnitsOf(objc::As<ns::String>(owned->description())) + u" (null)");
    EXPECT_EQ(Expanded(u"%d %ld %lld", -42, 7L, std::numeric_limits<long long>::min()), u"-42 7 -9223372036854775808");
    EXPECT_EQ(
        Expanded(u"%p %p %p", reinterpret_cast<const void *>(0x1a2b), ns::String{}, static_cast<objc::id>(nullptr)),
        u"0x1a2b 0x0 0x0");
    EXPECT_EQ(Expanded(u"100%% of %d", 3), u"100% of 3");
}

TEST_F(Format, ConversionsWithoutAnArgumentAreFixedTexts) {
    EXPECT_EQ(Expanded(u"%@ %s %S %ls"), u"(null) (null) (null) (null)");
    EXPECT_EQ(Expanded(u"%d %i %u %x %X %o %D %U %O %ld %hhd %5d %-03d|"), u"0 0 0 0 0 0 0 0 0 0 0 0 0|");
    EXPECT_EQ(Expanded(u"%f %.1f %e %g %Lf %A"), u"0.000000 0.000000 0.000000 0.000000 0.000000 0.000000");
    EXPECT_EQ(Expanded(u"[%c%C%n%hhn] %p %% %5% % %"), u"[] 0x0 % % %");
    EXPECT_EQ(Expanded(u"%5$@ %*d %.*f %1$*2$d"), u"(null) 0 0.000000 0");
    EXPECT_EQ(Expanded(u"%@ %@ %d", "one"_ns), u"one (null) 0");
}

TEST_F(Format, ArgumentsOfAnotherKindAreNotRead) {
    int victim = 7;
    EXPECT_EQ(Expanded(u"a%nb%sc%@", static_cast<const void *>(&victim), static_cast<const void *>(&victim), 1),
              u"ab(null)c(null)");
    EXPECT_EQ(victim, 7);
    EXPECT_EQ(Expanded(u"%d %f %p", "x"_ns, 3, 7), u"0 0.000000 0x0");
}

TEST_F(Format, WhatIsNoConversionStands) {
    EXPECT_EQ(Expanded(u"%"), u"%");
    EXPECT_EQ(Expanded(u"%%%"), u"%%");
    EXPECT_EQ(Expanded(u"%y %5k %-08.3lw %弹 %m %5"), u"%y %5k %-08.3lw %弹 %m %5");
    EXPECT_EQ(Expanded(u"%y%@ %%@", "x"_ns), u"%yx %@");
    const std::u16string strange{u'a', 0, 0xd800, u'%', 0, u'd', 0xdc00, 0xd83d, 0xde00, 0xffff, 0xfeff};
    EXPECT_EQ(Expanded(strange), strange);
    EXPECT_EQ(Expanded(u"[%@]", StringOf(strange)), u"[" + strange + u"]");
    EXPECT_EQ(UnitsOf(FormatString(ns::String{}, 1)), u"");
}

ns::Object RaisingDescription(ns::Object self, objc::SEL) {
    test::Raise("no description"_ns);
    return self;
}
ns::Object OwnDescription(ns::Object self, objc::SEL) {
    return self;
}

TEST_F(Format, DescriptionsThatRaiseOrAreNoText) {
    const objc::MethodEntry raising[] = {objc::MethodNamed<"description", &RaisingDescription>()};
    const objc::MethodEntry noText[] = {objc::MethodNamed<"description", &OwnDescription>()};
    const auto first = test::NewInstance(test::RegisterClass("FormatTestRaising", "NSObject", raising));
    const auto second = test::NewInstance(test::RegisterClass("FormatTestNoText", "NSObject", noText));
    EXPECT_EQ(Expanded(u"a %@ b %@ c", first, second), u"a (null) b (null) c");
}

TEST_F(Format, LongFormats) {
    EXPECT_EQ(Expanded(Repeated(u"%@", 50000)), Repeated(u"(null)", 50000));
    EXPECT_EQ(Expanded(Repeated(u"%d", 50000), 7), u"7" + Repeated(u"0", 49999));
    EXPECT_EQ(Expanded(Repeated(u"%*y", 33000)), Repeated(u"%*y", 33000));
    const std::u16string text(100000, u'弹');
    EXPECT_EQ(Expanded(text), text);
    EXPECT_EQ(Expanded(u"%@", StringOf(text)), text);
    const std::u16string stars = u"%" + std::u16string(99999, u'*');
    EXPECT_EQ(Expanded(stars), stars);
    EXPECT_EQ(Expanded(u"%" + std::u16string(99998, u'9') + u"d", 3), u"3");
}

} // namespace
} // namespace corvel
