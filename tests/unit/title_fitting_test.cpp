// Fitting titles, held against the plain search from the longest prefix down, with text measured for real.

#include "matrix/title_fitting.hpp"

#include "render/utf8_text.hpp"
#include "runtime/utf16.hpp"
#include "runtime_support.hpp"

#include <gtest/gtest.h>
#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {
namespace {

using sim::StringOf;

std::string Utf8(std::u16string_view text) {
    return sim::Utf8Text(text, [](char32_t character) { return sim::IsSurrogate(character) ? U'\uFFFD' : character; })
        .bytes;
}

/// The units as escapes, for messages.
std::string Escaped(std::u16string_view text) {
    std::string out;
    for (const char16_t unit : text) {
        char escape[8];
        std::snprintf(escape, sizeof(escape), "\\u%04x", static_cast<unsigned>(unit));
        out += unit > u' ' && unit < 0x7f ? std::string(1, static_cast<char>(unit)) : escape;
    }
    return out;
}

/// Heights of wrapped text as pango lays it out.
class Measure {
  public:
    explicit Measure(const char *family) {
        PangoFontMap *fonts = pango_cairo_font_map_new();
        pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(fonts), 72);
        PangoContext *context = pango_font_map_create_context(fonts);
        layout_.reset(pango_layout_new(context));
        PangoFontDescription *font = pango_font_description_new();
        pango_font_description_set_family(font, family);
        pango_font_description_set_absolute_size(font, 11 * PANGO_SCALE);
        pango_layout_set_font_description(layout_.get(), font);
        pango_layout_set_wrap(layout_.get(), PANGO_WRAP_WORD_CHAR);
        pango_font_description_free(font);
        g_object_unref(context);
        g_object_unref(fonts);
    }

    double HeightOf(std::u16string_view text, double width) {
        const std::string bytes = Utf8(text);
        pango_layout_set_width(layout_.get(), static_cast<int>(width * PANGO_SCALE));
        pango_layout_set_text(layout_.get(), bytes.data(), static_cast<int>(bytes.size()));
        int height = 0;
        pango_layout_get_size(layout_.get(), nullptr, &height);
        return static_cast<double>(height) / PANGO_SCALE;
    }

  private:
    std::unique_ptr<PangoLayout, decltype(&g_object_unref)> layout_{nullptr, g_object_unref};
};

using Fits = std::function<bool(unsigned long)>;

TitleFit FitOneByOne(unsigned long length, const Fits &fits) {
    if (length == 0 || fits(length)) {
        return {length, false};
    }
    for (unsigned long n = length - 1; n >= 1; --n) {
        if (fits(n)) {
            return {n, true};
        }
    }
    return {1, true};
}

unsigned long LongestCharacter(ns::String text) {
    unsigned long longest = 0;
    for (unsigned long i = 0; i < text.length();) {
        const ns::Range character = text.rangeOfComposedCharacterSequenceAtIndex(i);
        longest = std::max(longest, character.length);
        i = character.location + character.length;
    }
    return longest;
}

/// FitTitle's answer; the number of its measurements is held to the promised bound.
TitleFit FitCounted(std::u16string_view text, const Fits &fits, unsigned long *used = nullptr) {
    const test::Pool pool;
    unsigned long count = 0;
    const TitleFit fit = FitTitle(StringOf(text), [&](unsigned long length) {
        ++count;
        return fits(length);
    });
    if (!text.empty()) {
        const double bound = (2 * std::log2(static_cast<double>(text.size()))) + 4 +
                             static_cast<double>(text.size() <= 500 ? LongestCharacter(StringOf(text)) : 64);
        EXPECT_LE(static_cast<double>(count), bound) << Escaped(text);
    }
    if (used != nullptr) {
        *used = count;
    }
    return fit;
}

void ExpectSame(std::u16string_view text, const Fits &fits) {
    std::map<unsigned long, bool> known;
    const Fits remembered = [&](unsigned long n) {
        const auto found = known.find(n);
        return found != known.end() ? found->second : known[n] = fits(n);
    };
    const TitleFit expected = FitOneByOne(text.size(), remembered);
    const TitleFit actual = FitCounted(text, remembered);
    EXPECT_EQ(actual.length, expected.length) << Escaped(text);
    EXPECT_EQ(actual.shortened, expected.shortened) << Escaped(text);
}

struct Alphabet {
    const char *name;
    std::vector<std::u16string> parts;
};

const Alphabet kAlphabets[] = {
    {"Latin",
     {u"a", u"i", u"W", u" ", u"hello", u"-", u".", u",", u"(", u")", u"ffi", u"AV", u"https://a.b/c?d=e", u"23",
      u"unbreakablylongword", u"   "}},
    {"Chinese", {u"弹", u"幕", u"，", u"。", u"「", u"」", u"か", u"ー", u"한", u"a", u" ", u"1", u"！！", u"\u3000"}},
    {"emoji",
     {u"😀", u"👍🏽", u"👨‍👩‍👧‍👦", u"🏳️‍🌈", u"🇨🇳", u"🇺", u"1️⃣", u"❤️", u"❤", u"a", u"弹", u" ",
      u"🏴󠁧󠁢󠁥󠁮󠁧󠁿", u"🧑‍🚀", u"👩🏽‍❤️‍💋‍👨🏿"}},
    {"line breaks",
     {u"\n", u"\n\n\n", u"\r\n", u"\r", u"a", u"弹", u"😀", u"hello ", u" ", u"  ", u"\u2028", u"\u2029", u"\u0085",
      u"\t", u"ב"}},
    {"marks",
     {u"e", u"e\u0301", u"a\u0302\u0303\u0304", u"弹\ufe0f", u"1\u20e3", u"\u200d", u"\u200b", u"\u00ad", u"a", u" ",
      u"\u3000", u"\u00a0", u"\u2060", u"弹"}},
    {"joining letters", {u"ب", u"س", u"ا", u"ل", u"م", u"ن", u"ه", u"ي", u"ض", u" ", u"ر", u"د"}},
    {"symbols", {u"☺", u"→", u"★", u"♥", u"①", u"α", u"я", u"𝒜", u"弹", u" ", u"a", u"1", u"䷀", u"ꀀ", u"é", u"ש"}},
    {"lone surrogates", {u"\xd83d", u"\xde00", u"\xd83d\xde00", u"a", u"弹", u" ", u"\n", u"\xdbff", u"\u200d"}},
    {"everything",
     {u"a", u"hello ", u"弹幕", u"😀", u"👨‍👩‍👧‍👦", u"\n", u"  ", u"\xd83d", u"🇨", u"e\u0301", u"ש",
      u"\t", u"\u200d", u"，", u"1️⃣"}},
};

class TitleFitting : public testing::TestWithParam<const char *> {};

TEST_P(TitleFitting, EqualsTheSearchOneByOne) {
    Measure measure(GetParam());
    for (const Alphabet &alphabet : kAlphabets) {
        SCOPED_TRACE(alphabet.name);
        std::mt19937 random(20240);
        const auto upTo = [&](unsigned long n) { return random() % n; };
        for (int round = 0; round < 15; ++round) {
            std::u16string text;
            for (unsigned long parts = 1 + upTo(1 + upTo(60)); parts > 0; --parts) {
                text += alphabet.parts[upTo(alphabet.parts.size())];
            }
            const double width = 8 + static_cast<double>(upTo(1400)) / 10;
            const double height = static_cast<double>(upTo(1130)) / 10;
            ExpectSame(text, [&](unsigned long n) {
                return measure.HeightOf(std::u16string_view(text).substr(0, n), width) <= height;
            });
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Fonts, TitleFitting, testing::Values("Noto Sans CJK SC", "sans-serif"),
                         [](const auto &font) { return std::string(font.index == 0 ? "Chinese" : "Default"); });

TEST(TitleFittingBound, HoldsForEveryEdgeOfShortTexts) {
    for (unsigned long length = 1; length <= 70; length += 1 + length / 8) {
        for (const std::u16string &text : {std::u16string(length, u'a'), std::u16string(length, u'\n')}) {
            for (unsigned long edge = 0; edge < length; ++edge) {
                ExpectSame(text, [&](unsigned long n) { return n <= edge; });
            }
        }
    }
}

std::u16string Repeated(std::u16string_view part, unsigned long times) {
    std::u16string text;
    for (; times > 0; --times) {
        text += part;
    }
    return text;
}

TEST(TitleFittingBound, HoldsForLongTexts) {
    std::u16string runs; // of line breaks, each as long as all before it
    while (runs.size() < 60'000) {
        runs += u"a" + std::u16string(runs.size() + 1, u'\n');
    }
    const std::u16string texts[] = {Repeated(u"a", 100'000),    Repeated(u"弹幕 ", 33'000),
                                    Repeated(u"\n", 100'000),   Repeated(u"a\n", 50'000),
                                    Repeated(u"\r\n", 5'000),   Repeated(u" ", 100'000),
                                    Repeated(u"😀", 50'000),    Repeated(u"👨‍👩‍👧‍👦", 9'000),
                                    Repeated(u"🇨🇳", 500),       Repeated(u"a\u200d", 999),
                                    Repeated(u"\xd83d", 9'999), runs};
    std::mt19937 random(7);
    for (const std::u16string &text : texts) {
        for (int round = 0; round < 20; ++round) {
            const unsigned long edge = random() % (round % 2 == 0 ? text.size() : std::min(text.size(), 500UL));
            const TitleFit fit = FitCounted(text, [&](unsigned long n) { return n <= edge; });
            EXPECT_EQ(fit.length, std::max(edge, 1UL)) << Escaped(text.substr(0, 8)) << " of " << text.size();
            EXPECT_TRUE(fit.shortened);
        }
    }
}

TEST(TitleFittingBound, ClustersWithoutEndCostLittle) {
    const std::u16string texts[] = {u"e" + std::u16string(30'000, u'\u0301'), Repeated(u"😀\u200d", 33'000),
                                    u"e" + std::u16string(30'000, u'\u200d')};
    for (const std::u16string &text : texts) {
        for (const unsigned long edge : {0UL, 1UL, 3UL, 20'000UL, 29'000UL}) {
            unsigned long used = 0;
            const TitleFit fit = FitCounted(text, [&](unsigned long n) { return n <= edge; }, &used);
            EXPECT_EQ(fit.length, std::max(edge, 1UL));
            EXPECT_LE(used, 120U);
        }
    }
}

TEST(FitTitle, EmptyTextIsNotMeasured) {
    unsigned long used = 1;
    const TitleFit fit = FitCounted(u"", [](unsigned long) { return false; }, &used);
    EXPECT_EQ(fit.length, 0U);
    EXPECT_FALSE(fit.shortened);
    EXPECT_EQ(used, 0U);
}

TEST(FitTitle, TextThatFitsIsMeasuredOnce) {
    unsigned long used = 0;
    const TitleFit fit = FitCounted(u"弹幕", [](unsigned long) { return true; }, &used);
    EXPECT_EQ(fit.length, 2U);
    EXPECT_FALSE(fit.shortened);
    EXPECT_EQ(used, 1U);
}

TEST(FitTitle, OneUnitIsShownEvenIfItDoesNotFit) {
    for (const std::u16string_view text : {u"弹", u"弹幕弹幕", u"😀", u"\n\n\n"}) {
        const TitleFit fit = FitCounted(text, [](unsigned long) { return false; });
        EXPECT_EQ(fit.length, 1U);
        EXPECT_TRUE(fit.shortened);
    }
}

TEST(FitTitle, AShorterPrefixOfAnEmojiMayBeTheTallerOne) {
    // After "ab": the family does not fit, nor does any part of it but the one without its last member.
    const std::u16string text = u"ab👨‍👩‍👧c";
    const TitleFit fit = FitCounted(text, [](unsigned long n) { return n <= 2 || n == 7; });
    EXPECT_EQ(fit.length, 7U);
    EXPECT_TRUE(fit.shortened);
}

TEST(FitTitle, OneMoreLetterMayTakeLessRoomWhereLettersJoin) {
    const std::u16string text(20, u'\u0633');
    // Halving finds 10 to fit and 11 not to; from there on letter by letter.
    for (const unsigned long beyond : {13UL, 14UL}) {
        const TitleFit fit = FitCounted(text, [&](unsigned long n) { return n <= 10 || n == beyond; });
        EXPECT_EQ(fit.length, beyond);
        EXPECT_TRUE(fit.shortened);
    }
    const std::u16string latin(20, u'a');
    EXPECT_EQ(FitCounted(latin, [](unsigned long n) { return n <= 10 || n == 13; }).length, 10U);
}

TEST(FitTitle, AnEmptyLastLineMayBeTallerThanWhatFollows) {
    // Blanks are no place to measure at: what follows them decides how they are laid out.
    for (const char16_t *blanks : {u"\n\n", u"  ", u"\u2003\u200d"}) {
        const std::u16string text = u"ab" + std::u16string(blanks) + u"cd";
        const TitleFit fit = FitCounted(text, [](unsigned long n) { return n <= 2 || n == 5; });
        EXPECT_EQ(fit.length, 5U) << Escaped(text);
    }
}

} // namespace
} // namespace corvel
