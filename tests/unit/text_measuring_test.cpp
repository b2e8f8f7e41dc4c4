// How the phone measures text: lines, wrapping, any units, any length.

#include "apple/uikit/text_measuring.hpp"
#include "drawing_support.hpp"
#include "render/text_layout.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>

namespace {

using namespace corvel::test;

class Measuring : public Drawing {};

ns::Dictionary FontAttributes(double size) {
    return ns::Dictionary::dictionaryWithObject(ui::Font::systemFontOfSize(size), NSFontAttributeName);
}

constexpr long kLabelOptions = NSStringDrawingUsesLineFragmentOrigin | NSStringDrawingUsesFontLeading;

cg::Size Measure(std::u16string_view text, double width, double size = 11) {
    return ui::BoundingRect(StringOf(text), {width, kUnlimited}, kLabelOptions, FontAttributes(size)).size;
}

TEST_F(Measuring, LinesHaveTheFontsHeight) {
    EXPECT_NEAR(LineHeight(17), 20.287, 0.001);
    EXPECT_DOUBLE_EQ(Measure(u"x", 100).height, LineHeight(11));
    EXPECT_DOUBLE_EQ(Measure(u"弹😀", 100).height, LineHeight(11));
    EXPECT_DOUBLE_EQ(Measure(u"", 100).height, LineHeight(11));
    EXPECT_EQ(Measure(u"", 100).width, 0);
    EXPECT_DOUBLE_EQ(Measure(u"a\nb\r\nc\u2028d", 100).height, 4 * LineHeight(11));
    EXPECT_DOUBLE_EQ(Measure(u"a\n", 100).height, 2 * LineHeight(11));
}

TEST_F(Measuring, ChineseIsAnEmWide) {
    EXPECT_NEAR(Measure(u"弹幕矩阵", 1000, 20).width, 80, 0.5);
    // Five to a line of 55 points and a little.
    EXPECT_DOUBLE_EQ(Measure(u"弹幕弹幕弹幕弹幕弹幕", 55.5).height, 2 * LineHeight(11));
    EXPECT_DOUBLE_EQ(Measure(u"弹幕弹幕弹幕弹幕弹幕弹", 55.5).height, 3 * LineHeight(11));
}

TEST_F(Measuring, LatinIsAsWideAsOnThePhone) {
    // Widths of the phone's own default label and button, in whole points upwards.
    const auto width = [](std::u16string_view text, double size) {
        return sim::MeasureText(text, {{size, false}, sim::Wrapping::kNone, 0}).width;
    };
    EXPECT_EQ(std::ceil(width(u"Label", 17)), 42);
    EXPECT_EQ(std::ceil(width(u"Button", 15)), 46);
    EXPECT_LT(width(u"ab", 17) / 17, width(u"ab", 12) / 12) << "larger letters stand closer";
    EXPECT_NEAR(width(u"弹ab弹", 17), 2 * 17 + width(u"ab", 17), 0.01) << "Chinese keeps its distance";
    for (double size = 1; size < 60; size += 0.25) {
        EXPECT_LT(width(u"aaaa", size), width(u"aaaa", size + 0.25)) << size;
    }
}

TEST_F(Measuring, GrowsWithTextAndSizeAndShrinksWithWidth) {
    const std::u16string text = u"主播好漂亮 hello world 来了来了，关注走一波 666666";
    double height = 0;
    for (std::size_t length = 1; length <= text.size(); ++length) {
        const cg::Size size = Measure(std::u16string_view(text).substr(0, length), 60);
        EXPECT_GE(size.height, height) << length;
        EXPECT_LE(size.width, 60) << length;
        height = size.height;
    }
    for (int step = 1; step < 20; ++step) {
        const double width = step * 20;
        EXPECT_GE(Measure(text, width).height, Measure(text, width + 20).height) << width;
        EXPECT_LE(Measure(text, width, 11).height, Measure(text, width, 14).height) << width;
    }
}

TEST_F(Measuring, WrapsAtWordsAndBreaksWordsThatAreTooLong) {
    const sim::LineStyle style{{11, false}, sim::Wrapping::kWord, 60};
    const std::u16string words = u"hello wonderful world";
    const auto lines = sim::BreakLines(words, style);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(words.substr(lines[0].start, lines[0].end - lines[0].start), u"hello ");
    EXPECT_EQ(words.substr(lines[1].start, lines[1].end - lines[1].start), u"wonderful ");
    const std::u16string word(40, u'w');
    const auto pieces = sim::BreakLines(word, style);
    EXPECT_GT(pieces.size(), 4U);
    EXPECT_EQ(pieces.back().end, word.size());
    const auto single = sim::BreakLines(u"弹弹弹", {{50, false}, sim::Wrapping::kWord, 3});
    EXPECT_EQ(single.size(), 3U) << "a line holds one character at least";
}

TEST_F(Measuring, UnusableLimitsAreNone) {
    const std::u16string text(200, u'弹');
    for (const double width : {0.0, -5.0, kNaN, kUnlimited, std::numeric_limits<double>::infinity()}) {
        EXPECT_DOUBLE_EQ(Measure(text, width).height, LineHeight(11)) << width;
        EXPECT_NEAR(Measure(text, width).width, 2200, 1) << width;
    }
    const cg::Rect oneLine = ui::BoundingRect(StringOf(u"弹\n弹"), {5, 5}, 0, FontAttributes(11));
    EXPECT_DOUBLE_EQ(oneLine.size.height, LineHeight(11)) << "without the option text is not laid out in lines";
    const cg::Rect low = ui::BoundingRect(StringOf(text), {110, 40}, kLabelOptions, FontAttributes(11));
    EXPECT_DOUBLE_EQ(low.size.height, 3 * LineHeight(11)) << "lines that do not fit the height are left out";
    EXPECT_DOUBLE_EQ(ui::BoundingRect("x"_ns, {100, 100}, kLabelOptions, nullptr).size.height, LineHeight(12));
}

TEST_F(Measuring, TakesAnyUnits) {
    using namespace std::string_view_literals;
    const double replacement = Measure(u"\uFFFD", 1000).width;
    EXPECT_GT(replacement, 0);
    EXPECT_DOUBLE_EQ(Measure(u"\xD83D"sv, 1000).width, replacement);
    EXPECT_DOUBLE_EQ(Measure(u"\xDE00"sv, 1000).width, replacement);
    EXPECT_DOUBLE_EQ(Measure(u"\0"sv, 1000).width, replacement);
    EXPECT_GT(Measure(u"a\0b"sv, 1000).width, Measure(u"ab", 1000).width);
    EXPECT_DOUBLE_EQ(Measure(u"a\u0001b", 1000).width, Measure(u"ab", 1000).width) << "controls take no room";
    EXPECT_EQ(Measure(u"😀", 1000).width, Measure(u"👩\u200D💻", 1000).width) << "one picture";
}

/// Compares every prefix, measured after the whole text, with the same prefix broken into lines alone.
void ExpectPrefixesMeasureAsIfAlone(const std::u16string &text) {
    const sim::LineStyle style{{11, false}, sim::Wrapping::kWord, 64};
    EXPECT_EQ(sim::MeasureText(text, style).lines, sim::BreakLines(text, style).size());
    for (std::size_t length = text.size(); length-- > 0;) {
        const std::u16string_view prefix = std::u16string_view(text).substr(0, length);
        const sim::TextExtent known = sim::MeasureText(prefix, style);
        const auto lines = sim::BreakLines(prefix, style);
        double widest = 0;
        for (const sim::TextLine &line : lines) {
            widest = std::max(widest, line.width);
        }
        ASSERT_EQ(known.lines, lines.size()) << length;
        ASSERT_DOUBLE_EQ(known.width, widest) << length;
    }
}

TEST_F(Measuring, PrefixesMeasureAsIfAlone) {
    const char16_t *const bits[] = {u"弹幕",   u"word ", u"1,000", u"“引号”",  u"😀",       u"👩\u200D💻",
                                    u"\xD83D", u"\r\n",  u"\r",    u"e\u0301", u"longword", u"，"};
    std::uint32_t random = 12345;
    std::u16string text;
    while (text.size() < 300) {
        random = random * 1664525 + 1013904223;
        text += bits[(random >> 16) % std::size(bits)];
    }
    ExpectPrefixesMeasureAsIfAlone(text);
}

TEST_F(Measuring, PrefixesMayCutWhatIsOnePicture) {
    // Wherever text is shaped in pieces, one of these has a picture lying across the seam.
    for (std::size_t length = 0; length < 6; ++length) {
        std::u16string text(length, u'x');
        while (text.size() < 280) {
            text += u"👩\u200D💻";
        }
        ExpectPrefixesMeasureAsIfAlone(text);
    }
}

TEST_F(Measuring, FirstLinesAreTheSameHoweverManyAreAskedFor) {
    std::u16string text;
    for (int i = 0; i < 900; ++i) {
        text += i % 7 == 0 ? u"word " : u"弹";
    }
    const sim::LineStyle style{{11, false}, sim::Wrapping::kWord, 64};
    const auto all = sim::BreakLines(text, style);
    for (const std::size_t limit : {1UL, 2UL, 50UL, 120UL, all.size()}) {
        const auto first = sim::BreakLines(text, style, limit);
        ASSERT_EQ(first.size(), limit);
        for (std::size_t i = 0; i < limit; ++i) {
            EXPECT_EQ(first[i].end, all[i].end) << i << " of " << limit;
        }
    }
}

TEST_F(Measuring, TakesVeryLongText) {
    EXPECT_DOUBLE_EQ(Measure(std::u16string(100'000, u'弹'), 60).height, 20'000 * LineHeight(11));
    EXPECT_GT(Measure(std::u16string(100'000, u'x'), 60).height, 5'000 * LineHeight(11));
    EXPECT_NEAR(Measure(std::u16string(100'000, u'弹'), kUnlimited).width, 1'100'000, 10);
    EXPECT_DOUBLE_EQ(Measure(std::u16string(100'000, u'\u0301'), 60).height, LineHeight(11)) << "one character";
}

TEST_F(Measuring, TakesAnySize) {
    for (const double size : {0.0, -3.0, kNaN, 1e9, kUnlimited}) {
        const cg::Size measured = Measure(u"弹幕", 60, size);
        EXPECT_TRUE(std::isfinite(measured.width) && std::isfinite(measured.height)) << size;
        EXPECT_GT(measured.height, 0) << size;
    }
}

} // namespace
