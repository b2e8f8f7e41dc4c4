// Where characters end in UTF-16 text.

#include "matrix/grapheme.hpp"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace corvel {
namespace {

/// The lengths of the text's clusters, in units.
std::vector<int> ClustersOf(std::u16string_view text) {
    const Utf16Text units{
        text.data(), [](const void *data, unsigned long index) { return static_cast<const char16_t *>(data)[index]; },
        text.size()};
    std::vector<int> lengths;
    int length = 0;
    for (unsigned long index = 1; index <= text.size(); ++index) {
        ++length;
        if (IsGraphemeBoundary(units, index)) {
            lengths.push_back(length);
            length = 0;
        }
    }
    return lengths;
}

using Lengths = std::vector<int>;

TEST(Grapheme, PlainTextBreaksEverywhere) {
    EXPECT_EQ(ClustersOf(u"a 弹1"), (Lengths{1, 1, 1, 1}));
    EXPECT_EQ(ClustersOf(u""), Lengths{});
}

TEST(Grapheme, SurrogatesPairAndLoneOnesStandAlone) {
    EXPECT_EQ(ClustersOf(u"😀😀"), (Lengths{2, 2}));
    EXPECT_EQ(ClustersOf(u"\xd83d\xd83d\xde00\xde00"), (Lengths{1, 2, 1}));
}

TEST(Grapheme, LineEnds) {
    EXPECT_EQ(ClustersOf(u"\r\n\n\r\r\n"), (Lengths{2, 1, 1, 2}));
    EXPECT_EQ(ClustersOf(u"\n\u0301"), (Lengths{1, 1}));
}

TEST(Grapheme, MarksFollowTheirBase) {
    EXPECT_EQ(ClustersOf(u"e\u0301\u0302x"), (Lengths{3, 1}));
    EXPECT_EQ(ClustersOf(u"か\u3099き"), (Lengths{2, 1}));
    EXPECT_EQ(ClustersOf(u"❤\ufe0f❤"), (Lengths{2, 1}));
    EXPECT_EQ(ClustersOf(u"1\ufe0f\u20e3"
                         u"2"),
              (Lengths{3, 1}));
}

TEST(Grapheme, Emoji) {
    EXPECT_EQ(ClustersOf(u"👍🏽👍"), (Lengths{4, 2}));
    EXPECT_EQ(ClustersOf(u"👨‍👩‍👧‍👦👨"), (Lengths{11, 2}));
    EXPECT_EQ(ClustersOf(u"🏳️‍🌈a"), (Lengths{6, 1}));
    EXPECT_EQ(ClustersOf(u"👩🏽‍❤️‍👨🏿"), (Lengths{12}));
    EXPECT_EQ(ClustersOf(u"🏴\U000e0067\U000e0062\U000e007f🏴"), (Lengths{8, 2}));
    EXPECT_EQ(ClustersOf(u"a\u200db"), (Lengths{2, 1}));
}

TEST(Grapheme, FlagsPairFromTheStartOfTheirRun) {
    EXPECT_EQ(ClustersOf(u"🇨🇳🇯🇵🇺"), (Lengths{4, 4, 2}));
    EXPECT_EQ(ClustersOf(u"a🇨🇳"), (Lengths{1, 4}));
}

TEST(Grapheme, HangulSyllables) {
    EXPECT_EQ(ClustersOf(u"\u1112\u1161\u11ab\u1100"), (Lengths{3, 1}));
    EXPECT_EQ(ClustersOf(u"\uac00\u11a8\uac01\u1161"), (Lengths{2, 1, 1}));
    EXPECT_EQ(ClustersOf(u"한국"), (Lengths{1, 1}));
}

TEST(Grapheme, ConjunctsOfIndicScripts) {
    EXPECT_EQ(ClustersOf(u"\u0915\u094d\u0937\u093f\u0915"), (Lengths{4, 1}));
    EXPECT_EQ(ClustersOf(u"\u0915\u094da"), (Lengths{2, 1}));
}

} // namespace
} // namespace corvel
