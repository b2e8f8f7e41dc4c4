// Ranges of composed character sequences: where NSString of the simulated phone says that characters start and end.

#include "apple/foundation/string.hpp"
#include "objc/guard.hpp"
#include "runtime/utf16.hpp"
#include "runtime_support.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {
namespace {

using sim::StringOf;
using Lengths = std::vector<unsigned long>;

/// The lengths of the text's characters, asked for at each of its units.
Lengths CharactersOf(ns::String text) {
    Lengths lengths;
    for (unsigned long index = 0; index < text.length(); ++index) {
        const ns::Range range = text.rangeOfComposedCharacterSequenceAtIndex(index);
        if (range.location == index) {
            lengths.push_back(range.length);
        } else {
            EXPECT_EQ(range.location + range.length,
                      text.rangeOfComposedCharacterSequenceAtIndex(range.location).length + range.location)
                << "unit " << index << " agrees with the first of its character";
        }
    }
    return lengths;
}

Lengths CharactersOf(std::u16string_view units) {
    return CharactersOf(StringOf(units));
}

class Characters : public testing::Test {
    test::Pool pool_;
};

TEST_F(Characters, OfPlainText) {
    EXPECT_EQ(CharactersOf(u""), Lengths{});
    EXPECT_EQ(CharactersOf(u"abc"), (Lengths{1, 1, 1}));
    EXPECT_EQ(CharactersOf(u"a 弹1，。"), (Lengths{1, 1, 1, 1, 1, 1}));
    EXPECT_EQ(CharactersOf(u"😀😀"), (Lengths{2, 2}));
    EXPECT_EQ(CharactersOf(u"𠮷x"), (Lengths{2, 1}));
}

TEST_F(Characters, LoneSurrogatesStandAlone) {
    EXPECT_EQ(CharactersOf(u"\xd83d\xd83d\xde00\xde00"), (Lengths{1, 2, 1}));
    EXPECT_EQ(CharactersOf(u"\xd83d\u0301\u200d\xde00"), (Lengths{1, 2, 1}));
}

TEST_F(Characters, LineEndsAndControlCharacters) {
    EXPECT_EQ(CharactersOf(u"\r\n\n\r\r\n"), (Lengths{2, 1, 1, 2}));
    EXPECT_EQ(CharactersOf(u"\n\u0301\t\u0301"), (Lengths{1, 1, 1, 1}));
    EXPECT_EQ(CharactersOf(std::u16string{u'a', u'\0', 0x301, u'\0'}), (Lengths{1, 1, 1, 1}));
    EXPECT_EQ(CharactersOf(u"\u200b\ufeff\u2028"), (Lengths{1, 1, 1}));
}

TEST_F(Characters, MarksFollowTheirBase) {
    EXPECT_EQ(CharactersOf(u"e\u0301\u0302x \u0301"), (Lengths{3, 1, 2}));
    EXPECT_EQ(CharactersOf(u"か\u3099き"), (Lengths{2, 1}));
    EXPECT_EQ(CharactersOf(u"葛\U000e0100飾"), (Lengths{3, 1}));
    EXPECT_EQ(CharactersOf(u"\u0644\u064e\u0651\u05e9\u05c1\u05b8"), (Lengths{3, 3}));
    EXPECT_EQ(CharactersOf(u"\u0e17\u0e35\u0e48"), (Lengths{3}));
    EXPECT_EQ(CharactersOf(u"\u0301\u0301a"), (Lengths{2, 1})) << "marks without a base";
}

TEST_F(Characters, Emoji) {
    EXPECT_EQ(CharactersOf(u"❤\ufe0f❤"), (Lengths{2, 1}));
    EXPECT_EQ(CharactersOf(u"1\ufe0f\u20e3#\ufe0f\u20e3*"), (Lengths{3, 3, 1}));
    EXPECT_EQ(CharactersOf(u"👍🏽👍"), (Lengths{4, 2}));
    EXPECT_EQ(CharactersOf(u"👨‍👩‍👧‍👦👨"), (Lengths{11, 2}));
    EXPECT_EQ(CharactersOf(u"🏳️‍🌈a👁️‍🗨️"), (Lengths{6, 1, 7}));
    EXPECT_EQ(CharactersOf(u"👩🏽‍❤️‍👨🏿"), (Lengths{12}));
    EXPECT_EQ(CharactersOf(u"🏴\U000e0067\U000e0062\U000e007f🏴"), (Lengths{8, 2}));
    EXPECT_EQ(CharactersOf(u"a\u200db\u200d👧"), (Lengths{2, 2, 2})) << "letters are not joined";
}

TEST_F(Characters, FlagsPairFromTheStartOfTheirRow) {
    EXPECT_EQ(CharactersOf(u"🇨🇳🇯🇵🇺"), (Lengths{4, 4, 2}));
    EXPECT_EQ(CharactersOf(u"a🇨🇳"), (Lengths{1, 4}));
    std::u16string many;
    for (int i = 0; i < 100; ++i) {
        many += u"🇨🇳";
    }
    EXPECT_EQ(CharactersOf(many), Lengths(100, 4));
    EXPECT_EQ(CharactersOf(u"🇨🇳" + many + u"🇺").back(), 2UL);
}

TEST_F(Characters, HangulSyllables) {
    EXPECT_EQ(CharactersOf(u"\u1112\u1161\u11ab\u1100"), (Lengths{3, 1}));
    EXPECT_EQ(CharactersOf(u"\uac00\u11a8\uac01\u1161"), (Lengths{2, 1, 1}));
    EXPECT_EQ(CharactersOf(u"한국"), (Lengths{1, 1}));
    EXPECT_EQ(CharactersOf(u"\u1112 \u1161"), (Lengths{1, 1, 1})) << "not over a blank";
}

TEST_F(Characters, ConjunctsOfIndicScripts) {
    EXPECT_EQ(CharactersOf(u"\u0915\u094d\u0937\u093f\u0915"), (Lengths{4, 1}));
    EXPECT_EQ(CharactersOf(u"\u0915\u094d\u200d\u0937"), (Lengths{4}));
    EXPECT_EQ(CharactersOf(u"\u0915\u094d\u200c\u0937"), (Lengths{3, 1})) << "kept apart on purpose";
    EXPECT_EQ(CharactersOf(u"\u0915\u094da \u0937"), (Lengths{2, 1, 1, 1}));
    EXPECT_EQ(CharactersOf(u"\u0915\u094d\u0995"), (Lengths{2, 1})) << "letters of two scripts";
}

TEST_F(Characters, AreTheSameInEveryKindOfString) {
    const auto text = ns::MutableString::string();
    text.appendString(u"e\u0301👍🏽\r\n"_ns);
    EXPECT_EQ(CharactersOf(text), (Lengths{2, 4, 2}));
    EXPECT_EQ(CharactersOf("a\r\nb"_ns), (Lengths{1, 2, 1}));
    EXPECT_EQ(CharactersOf(StringOf(u"xe\u0301👍🏽").substringFromIndex(1)), (Lengths{2, 4}));
}

TEST_F(Characters, ARangeGrowsToWholeCharactersAtBothEnds) {
    const ns::String text = u"ae\u0301👍🏽b"_ns; // 1, 2, 4 and 1 units
    const auto grown = [&](unsigned long location, unsigned long length) {
        const ns::Range range = text.rangeOfComposedCharacterSequencesForRange({location, length});
        return std::pair(range.location, range.length);
    };
    EXPECT_EQ(grown(0, 8), std::pair(0UL, 8UL));
    EXPECT_EQ(grown(0, 1), std::pair(0UL, 1UL));
    EXPECT_EQ(grown(0, 2), std::pair(0UL, 3UL));
    EXPECT_EQ(grown(2, 1), std::pair(1UL, 2UL));
    EXPECT_EQ(grown(2, 2), std::pair(1UL, 6UL));
    EXPECT_EQ(grown(5, 1), std::pair(3UL, 4UL));
    EXPECT_EQ(grown(3, 4), std::pair(3UL, 4UL));
    // An empty range stands for the character at its place; at the end there is none.
    EXPECT_EQ(grown(2, 0), std::pair(1UL, 2UL));
    EXPECT_EQ(grown(7, 0), std::pair(7UL, 1UL));
    EXPECT_EQ(grown(8, 0), std::pair(8UL, 0UL));
}

TEST_F(Characters, OutsideTheTextIsAnException) {
    const auto reason = [](auto ask) {
        std::string text = "(none)";
        objc::Guard(ask, [&](objc::Object raised) { text = objc::As<ns::String>(raised).UTF8String(); });
        return text;
    };
    EXPECT_EQ(reason([] { "abc"_ns.rangeOfComposedCharacterSequenceAtIndex(3); }),
              "-[NSString rangeOfComposedCharacterSequenceAtIndex:]: Index 3 out of bounds; string length 3");
    EXPECT_EQ(reason([] { "abc"_ns.rangeOfComposedCharacterSequencesForRange({2, ~0UL}); }),
              "-[NSString rangeOfComposedCharacterSequencesForRange:]: Range {2, 18446744073709551615} out of bounds; "
              "string length 3");
    EXPECT_NE(reason([] { ""_ns.rangeOfComposedCharacterSequencesForRange({1, 0}); }), "(none)");
}

/// A long text that repeats a pattern, and counts how many of its units are looked at.
struct Endless : ns::String {
    using String::String;
    static constexpr const char *kClassName = "CorvelTestEndlessString";
    static constexpr unsigned long kLength = 1'200'000;

    static inline std::u16string_view pattern;
    static inline unsigned long read = 0;
};

unsigned long Length(Endless, objc::SEL) {
    return Endless::kLength;
}

char16_t Unit(Endless, objc::SEL, unsigned long index) {
    ++Endless::read;
    return Endless::pattern[index % Endless::pattern.size()];
}

void Units(Endless self, objc::SEL selector, char16_t *buffer, ns::Range range) {
    for (unsigned long i = 0; i < range.length; ++i) {
        buffer[i] = Unit(self, selector, range.location + i);
    }
}

/// How many units are looked at for the character in the middle of the text.
unsigned long ReadFor(std::u16string_view pattern, unsigned long expectedLength) {
    if (objc::ClassOf<Endless>() == nullptr) {
        test::RegisterClass(Endless::kClassName, "NSString",
                            {objc::MethodNamed<"length", &Length>(), objc::MethodNamed<"characterAtIndex:", &Unit>(),
                             objc::MethodNamed<"getCharacters:range:", &Units>()});
    }
    Endless::pattern = pattern;
    Endless::read = 0;
    const auto text = ns::New<Endless>();
    EXPECT_EQ(text->rangeOfComposedCharacterSequenceAtIndex(Endless::kLength / 2).length, expectedLength);
    return Endless::read;
}

TEST_F(Characters, CostWhatTheyMeasureNotWhatTheTextDoes) {
    for (const std::u16string_view character : {u"弹", u"e\u0301", u"👍🏽", u"\u1112\u1161\u11ab"}) {
        EXPECT_LT(ReadFor(character, character.size()), 200UL);
    }
    // A character or a row of flags as long as the text takes the whole of it, but not many times over.
    EXPECT_LT(ReadFor(u"\u0301", Endless::kLength), 4 * Endless::kLength);
    EXPECT_LT(ReadFor(u"🇨🇳", 4), 4 * Endless::kLength);
}

} // namespace
} // namespace corvel
