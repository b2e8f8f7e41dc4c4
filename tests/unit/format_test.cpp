// The formatter under the log: a format may be a user's text, so most of these formats are hostile.

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

class FormatTest : public testing::Test {
    test::Pool pool_;
};

using FormatKinds = FormatTest;
using FormatMissing = FormatTest;
using FormatHostile = FormatTest;
using FormatHuge = FormatTest;

TEST_F(FormatKinds, Objects) {
    EXPECT_EQ(Expanded(u"[%@] %@", u"弹幕"_ns, "x"_ns), u"[弹幕] x");
    EXPECT_EQ(Expanded(u"%@", ns::String{}), u"(null)");
    const auto owned = ns::New<ns::Object>();
    EXPECT_EQ(Expanded(u"%@", owned), UnitsOf(objc::As<ns::String>(owned->description())));
    EXPECT_EQ(Expanded(u"%5@|%-5@|%.2@|%4.1@", "abc"_ns, "abc"_ns, "abc"_ns, "abc"_ns), u"  abc|abc  |ab|   a");
}

TEST_F(FormatKinds, Integers) {
    EXPECT_EQ(Expanded(u"%d %i %u %x %X %o", 42, -42, 42u, 255, 255, 8), u"42 -42 42 ff FF 10");
    EXPECT_EQ(Expanded(u"%D %U %O", -7, 7, 8), u"-7 7 10");
    EXPECT_EQ(Expanded(u"%ld %lu %lld %qd %zu %jd %td", -1L, 1UL, 2LL, 3LL, std::size_t{4}, 5L, 6L), u"-1 1 2 3 4 5 6");
    EXPECT_EQ(Expanded(u"%lld", std::numeric_limits<long long>::min()), u"-9223372036854775808");
    EXPECT_EQ(Expanded(u"%llu", std::numeric_limits<unsigned long long>::max()), u"18446744073709551615");
    EXPECT_EQ(Expanded(u"%d %u %hd %hu %hhd %hhu", 1L << 32, -1L, 65535, -1, 255, -1), u"0 4294967295 -1 65535 -1 255");
    EXPECT_EQ(Expanded(u"%02lX|%+d|% d|%-4d|%04d|%#x|%.3d", 10UL, 1, 1, 1, 1, 1, 1), u"0A|+1| 1|1   |0001|0x1|001");
    EXPECT_EQ(Expanded(u"%d", true), u"1");
}

TEST_F(FormatKinds, Numbers) {
    EXPECT_EQ(Expanded(u"%f %.2f %8.3f %-8.1f| %e %g %G %F", 1.5, 1.005, 2.5, 2.5, 1.0, 0.5, 1e10, 3.0f),
              u"1.500000 1.00    2.500 2.5     | 1.000000e+00 0.5 1E+10 3.000000");
    EXPECT_EQ(Expanded(u"%lf %Lf", 1.5, 2.5), u"1.500000 2.500000");
    EXPECT_EQ(Expanded(u"%a", 1.0), u"0x1p+0");
}

TEST_F(FormatKinds, CharactersTextsAndPointers) {
    EXPECT_EQ(Expanded(u"%c%C%c%lc", int{'A'}, 0x5f39, 0x141, 0x5f39), u"A弹A弹");
    EXPECT_EQ(Expanded(u"v%s|%5s|%-5s|%.1s", "1.1", "ab", "ab", "ab"), u"v1.1|   ab|ab   |a");
    EXPECT_EQ(Expanded(u"%s", "\xe5\xbc\xb9"), u"弹");
    EXPECT_EQ(Expanded(u"%s", static_cast<const char *>(nullptr)), u"(null)");
    EXPECT_EQ(Expanded(u"%p", reinterpret_cast<const void *>(0x1a2b)), u"0x1a2b");
    EXPECT_EQ(Expanded(u"%p|%6p", static_cast<const void *>(nullptr), ns::String{}), u"0x0|   0x0");
}

TEST_F(FormatKinds, PositionsAndStars) {
    EXPECT_EQ(Expanded(u"%2$@ %1$@ %2$@", "a"_ns, "b"_ns), u"b a b");
    EXPECT_EQ(Expanded(u"%*d|%-*d|%*d|", 4, 1, 4, 1, -4, 1), u"   1|1   |1   |");
    EXPECT_EQ(Expanded(u"%.*f %.*f", 1, 2.25, -1, 2.25), u"2.2 2.250000");
    EXPECT_EQ(Expanded(u"%1$*2$d", 7, 3), u"  7");
}

TEST_F(FormatMissing, EveryKind) {
    EXPECT_EQ(Expanded(u"%@ %s %S %ls"), u"(null) (null) (null) (null)");
    EXPECT_EQ(Expanded(u"%d %i %u %x %o %ld %hhd %5d %-3d|"), u"0 0 0 0 0 0 0     0 0  |");
    EXPECT_EQ(Expanded(u"%f %.1f %e %g %Lf"), u"0.000000 0.0 0.000000e+00 0 0.000000");
    EXPECT_EQ(Expanded(u"%p"), u"0x0");
    EXPECT_EQ(Expanded(u"[%c%C]"), std::u16string(u"[\0\0]", 4));
    EXPECT_EQ(Expanded(u"%*d %.*f %*d"), u"0 0 0");
}

TEST_F(FormatMissing, MoreConversionsThanArguments) {
    EXPECT_EQ(Expanded(u"%@ %@ %d", "one"_ns), u"one (null) 0");
    EXPECT_EQ(Expanded(u"%5$@ %0$@ %2$d %99999999999999999999$@", "one"_ns), u"(null) (null) 0 (null)");
    EXPECT_EQ(Expanded(u"%1$@ %@ %@", "one"_ns), u"one one (null)");
}

TEST_F(FormatMissing, OtherKind) {
    EXPECT_EQ(Expanded(u"%@ %s", 1, 2), u"(null) (null)");
    EXPECT_EQ(Expanded(u"%d %f %s %ls", "x"_ns, 3, "x"_ns, "text"), u"0 0.000000 (null) (null)");
    EXPECT_EQ(Expanded(u"%d %x %p", 1.5, reinterpret_cast<const void *>(1), 7), u"0 0 0x0");
    EXPECT_EQ(Expanded(u"%@", reinterpret_cast<const void *>(1)), u"(null)");
    EXPECT_EQ(Expanded(u"%*d", "x"_ns, 3), u"3");
}

TEST_F(FormatHostile, StoresNothing) {
    int victim = 7;
    EXPECT_EQ(Expanded(u"a%nb%hhnc%lln%1$n", static_cast<const void *>(&victim)), u"abc");
    EXPECT_EQ(victim, 7);
}

TEST_F(FormatHostile, UnknownConversionsStand) {
    EXPECT_EQ(Expanded(u"%"), u"%");
    EXPECT_EQ(Expanded(u"100%"), u"100%");
    EXPECT_EQ(Expanded(u"%%%"), u"%%");
    EXPECT_EQ(Expanded(u"%y %5k %-08.3lw %弹 %m"), u"%y %5k %-08.3lw %弹 %m");
    EXPECT_EQ(Expanded(u"%5"), u"%5");
    EXPECT_EQ(Expanded(u"%3$"), u"%3$");
    EXPECT_EQ(Expanded(u"%*.*ll"), u"%*.*ll");
    EXPECT_EQ(Expanded(u"%$@ %d", 4), u"%$@ 4");
    EXPECT_EQ(Expanded(std::u16string(u"%\0d", 3)), std::u16string(u"%\0d", 3));
}

TEST_F(FormatHostile, PercentsAndStrays) {
    EXPECT_EQ(Expanded(u"50%% %5% %-%"), u"50% % %");
    EXPECT_EQ(Expanded(u"%y%@", "x"_ns), u"%yx");
    EXPECT_EQ(Expanded(u"%%@", "x"_ns), u"%@");
}

TEST_F(FormatHostile, FieldsAreBounded) {
    constexpr auto kField = static_cast<std::size_t>(kLargestFormatField);
    EXPECT_EQ(Expanded(u"%99999999d", 1), std::u16string(kField - 1, u' ') + u"1");
    EXPECT_EQ(Expanded(u"%-99999999999999999999999@", "x"_ns), u"x" + std::u16string(kField - 1, u' '));
    EXPECT_EQ(Expanded(u"%.99999999d", 1), std::u16string(kField - 1, u'0') + u"1");
    EXPECT_EQ(Expanded(u"%.99999999f", 0.5), u"0.5" + std::u16string(kField - 1, u'0'));
    EXPECT_EQ(Expanded(u"%*d", std::numeric_limits<long long>::min(), 1).size(), kField);
    EXPECT_EQ(Expanded(u"%*d", std::numeric_limits<int>::max(), 1).size(), kField);
    EXPECT_EQ(Expanded(u"%.*@", std::numeric_limits<long long>::max(), "text"_ns), u"text");
}

TEST_F(FormatHostile, UnitsPassUnharmed) {
    const std::u16string strange{u'a', 0, 0xd800, u'b', 0xdc00, 0xd83d, 0xde00, 0xffff, 0xfeff};
    EXPECT_EQ(Expanded(strange), strange);
    EXPECT_EQ(Expanded(u"[%@]", StringOf(strange)), u"[" + strange + u"]");
    EXPECT_EQ(Expanded(strange + u"%d" + strange, 5), strange + u"5" + strange);
    EXPECT_EQ(Expanded(u"%@", "%@%s%n"_ns), u"%@%s%n");
    EXPECT_EQ(Expanded(u"%d %C %d", 1, 0xd800, 2), std::u16string({u'1', u' ', 0xd800, u' ', u'2'}));
}

TEST_F(FormatHostile, NoFormat) {
    EXPECT_EQ(Expanded(u""), u"");
    EXPECT_EQ(UnitsOf(FormatString(ns::String{}, 1)), u"");
}

TEST_F(FormatHostile, BytesThatAreNoUtf8) {
    EXPECT_EQ(Expanded(u"<%s>%d", "a\xff\xfe", 1).back(), u'1');
}

ns::Object RaisingDescription(ns::Object self, objc::SEL) {
    test::Raise("no description"_ns);
    return self;
}
ns::Object OwnDescription(ns::Object self, objc::SEL) {
    return self;
}

TEST_F(FormatHostile, DescriptionsThatRaiseOrAreNoText) {
    const objc::MethodEntry raising[] = {objc::MethodNamed<"description", &RaisingDescription>()};
    const objc::MethodEntry noText[] = {objc::MethodNamed<"description", &OwnDescription>()};
    const auto first = test::NewInstance(test::RegisterClass("FormatTestRaising", "NSObject", raising));
    const auto second = test::NewInstance(test::RegisterClass("FormatTestNoText", "NSObject", noText));
    EXPECT_EQ(Expanded(u"a %@ b", first), u"a (null) b");
    EXPECT_EQ(Expanded(u"a %@ b", second), u"a (null) b");
}

TEST_F(FormatHuge, FiftyThousandConversions) {
    EXPECT_EQ(Expanded(Repeated(u"%@", 50000)), Repeated(u"(null)", 50000));
    EXPECT_EQ(Expanded(Repeated(u"%d", 50000), 7), u"7" + Repeated(u"0", 49999));
    EXPECT_EQ(Expanded(Repeated(u"%n", 50000)), u"");
    EXPECT_EQ(Expanded(Repeated(u"%*y", 33000)), Repeated(u"%*y", 33000));
    EXPECT_EQ(Expanded(Repeated(u"%%", 50000)), Repeated(u"%", 50000));
}

TEST_F(FormatHuge, LongRuns) {
    const std::u16string text(100000, u'弹');
    EXPECT_EQ(Expanded(text), text);
    EXPECT_EQ(Expanded(u"%@", StringOf(text)), text);
    const std::u16string stars = u"%" + std::u16string(99999, u'*');
    EXPECT_EQ(Expanded(stars), stars);
    const std::u16string digits = u"%" + std::u16string(99998, u'9') + u"d";
    EXPECT_EQ(Expanded(digits, 3), std::u16string(static_cast<std::size_t>(kLargestFormatField) - 1, u' ') + u"3");
    const std::u16string sizes = u"%" + std::u16string(99998, u'h') + u"d";
    EXPECT_EQ(Expanded(sizes, 3), u"3");
}

} // namespace
} // namespace corvel
