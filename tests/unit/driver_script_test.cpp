// The command language's words, files and expectations, without a phone.

#include "script/expectation.hpp"
#include "script/lexer.hpp"
#include "script/loader.hpp"
#include "script/text.hpp"
#include "script/vocabulary.hpp"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace sim::script {
namespace {

using Words = std::vector<Word>;

std::string ErrorOf(const std::string &text) {
    try {
        Lex(text, "a.scn");
    } catch (const ScriptError &error) {
        return error.what();
    }
    return "no error";
}

bool Holds(const std::string &expectation, const Answer &answer, Pointers &pointers) {
    const std::vector<Line> lines = Lex(expectation, "a.scn");
    WordReader words({"a.scn", 1}, lines.empty() ? std::span<const Word>{} : std::span<const Word>(lines[0].words));
    return Expectation::Read(words).Holds(answer, pointers);
}

bool Holds(const std::string &expectation, const Answer &answer) {
    Pointers pointers;
    return Holds(expectation, answer, pointers);
}

TEST(Lexer, SplitsLinesIntoWords) {
    const std::vector<Line> lines = Lex("tap \"弹\"  # the button\n\n# nothing here\n\twait 1.5\r\n", "a.scn");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].words, (Words{Bare("tap"), Text("弹")}));
    EXPECT_EQ(lines[1].words, (Words{Bare("wait"), Bare("1.5")}));
    EXPECT_EQ(lines[1].place.file, "a.scn");
    EXPECT_EQ(lines[1].place.line, 4);
}

TEST(Lexer, ReadsEveryEscape) {
    const std::vector<Line> lines = Lex(R"(set k "a\n\t\"\\\0\u5F39\uD83D\uDE00\uD83Dz")", "a.scn");
    std::u16string units = u"a\n\t\"\\";
    units += u'\0';
    units += u"\u5F39\U0001F600";
    units += static_cast<char16_t>(0xD83D);
    units += u'z';
    EXPECT_EQ(ToUtf16(lines.at(0).words.at(2).text), units);
}

TEST(Lexer, AColourIsNoComment) {
    EXPECT_EQ(Lex("x #FF2D55 1 #note", "a.scn").at(0).words, (Words{Bare("x"), Bare("#FF2D55"), Bare("1")}));
    EXPECT_EQ(Lex("x #FF2D5 1", "a.scn").at(0).words, (Words{Bare("x")}));
    EXPECT_EQ(Lex("x #FF2D55A", "a.scn").at(0).words, (Words{Bare("x")}));
    EXPECT_EQ(Lex("x #", "a.scn").at(0).words, (Words{Bare("x")}));
}

TEST(Lexer, EmptyTextIsAWord) {
    const std::vector<Line> lines = Lex("set k \"\"", "a.scn");
    EXPECT_EQ(lines.at(0).words.at(2), Text(""));
}

TEST(Lexer, ErrorsNameFileAndLine) {
    EXPECT_EQ(ErrorOf("wait 1\ntap \"open"), "a.scn:2: the quotes are not closed");
    EXPECT_EQ(ErrorOf("\n\ntap \"\\q\""), "a.scn:3: unknown escape \\q");
    EXPECT_EQ(ErrorOf("tap \"\\u12\""), "a.scn:1: \\u wants four hexadecimal digits");
    EXPECT_EQ(ErrorOf("tap \"a\"b"), "a.scn:1: a blank is missing between words");
    EXPECT_EQ(ErrorOf("tap \"\xFF\""), "a.scn:1: the line is not UTF-8");
    EXPECT_EQ(ErrorOf("tap \xC0\x80"), "a.scn:1: the line is not UTF-8");
}

TEST(Text, QuotedTextReadsBackTheSame) {
    for (const std::u16string &units :
         {std::u16string(u"plain 弹"), std::u16string(u"\"\\\n\t\r\x7F"), std::u16string(1, u'\0'),
          std::u16string(1, static_cast<char16_t>(0xDC00)), std::u16string(u"\U0001F600")}) {
        const std::string line = "x " + Quoted(ToUtf8(units));
        EXPECT_EQ(line.find('\n'), std::string::npos);
        EXPECT_EQ(ToUtf16(Lex(line, "a.scn").at(0).words.at(1).text), units);
    }
}

TEST(Text, NumbersAreShort) {
    EXPECT_EQ(FormatNumber(379.8), "379.8");
    EXPECT_EQ(FormatNumber(350), "350");
    EXPECT_EQ(FormatNumber(-0.00001), "0");
    EXPECT_EQ(FormatNumber(0.12345), "0.1235");
}

TEST(WordReader, ErrorsSayWhatIsMissing) {
    const Words words{Bare("tap"), Text("x"), Bare("1.5")};
    WordReader reader({"a.scn", 7}, words);
    EXPECT_TRUE(reader.Take("tap"));
    EXPECT_THROW(
        {
            try {
                WordReader(reader).Number("seconds");
            } catch (const ScriptError &error) {
                EXPECT_STREQ(error.what(), "a.scn:7: expected seconds (a number), not \"x\"");
                throw;
            }
        },
        ScriptError);
    EXPECT_EQ(reader.QuotedText("a text"), "x");
    EXPECT_THROW(reader.End(), ScriptError);
    EXPECT_THROW(WordReader(reader).Integer("a whole number"), ScriptError);
    EXPECT_DOUBLE_EQ(reader.Number("a number"), 1.5);
    EXPECT_THROW(reader.Next("more"), ScriptError);
}

TEST(Expectation, IsComparesWordByWord) {
    const Answer frame{{Bare(325.0), Bare("354.8"), Bare("50"), Bare("50")}};
    EXPECT_TRUE(Holds("is 325 354.8 50 50", frame));
    EXPECT_TRUE(Holds("is 325.009 354.8 50 50", frame));
    EXPECT_FALSE(Holds("is 325.02 354.8 50 50", frame));
    EXPECT_FALSE(Holds("is 325 354.8 50", frame));
    EXPECT_FALSE(Holds("is 325 354.8 50 50 0", frame));
    EXPECT_TRUE(Holds("is \"弹\"", {{Text("弹")}}));
    EXPECT_FALSE(Holds("is \"截\"", {{Text("弹")}}));
}

TEST(Expectation, TextIsNoNumber) {
    EXPECT_FALSE(Holds("is \"1.0\"", {{Text("1")}}));
    EXPECT_TRUE(Holds("is 1.0", {{Bare("1")}}));
}

TEST(Expectation, SeveralFactsAreOneSequence) {
    EXPECT_TRUE(Holds("is UIView UIButton \"弹\"", {{Bare("UIView")}, {Bare("UIButton"), Text("弹")}}));
}

TEST(Expectation, AbsenceIsAnEmptyAnswer) {
    EXPECT_TRUE(Holds("is absent", {}));
    EXPECT_FALSE(Holds("is absent", {{Bare("1")}}));
    EXPECT_FALSE(Holds("", {}));
    EXPECT_TRUE(Holds("", {{Bare("1")}}));
    EXPECT_FALSE(Holds("contains \"\"", {}));
}

TEST(Expectation, ContainsLooksIntoEachFact) {
    const Answer log{{Text("[UI] Init")}, {Text("[DY] send=\"1\" store=0x55d0 frag=0x0")}};
    EXPECT_TRUE(Holds("contains \"send=\\\"1\\\"\"", log));
    EXPECT_FALSE(Holds("contains \"Init\\n\"", log));
    EXPECT_TRUE(Holds("matches \"^.UI. I.it$\"", log));
    EXPECT_FALSE(Holds("matches \"^Init\"", log));
}

TEST(Expectation, PointersKeepTheirNames) {
    Pointers pointers;
    const Answer first{{Text("mounted 0xAB12 was 0x0")}};
    EXPECT_TRUE(Holds("is \"mounted {ptr:f} was {null}\"", first, pointers));
    EXPECT_EQ(pointers["f"], "0xAB12");
    EXPECT_TRUE(Holds("contains \"{ptr:f} →\"", {{Text("fragment 0xAB12 → 0xCD")}}, pointers));
    EXPECT_FALSE(Holds("contains \"{ptr:f} →\"", {{Text("fragment 0xAB13 → 0xCD")}}, pointers));
    EXPECT_FALSE(Holds("contains \"{ptr:g} ← {ptr:f}\"", {{Text("0xEE ← 0xFF")}}, pointers));
    EXPECT_FALSE(pointers.contains("g")) << "what did not hold binds nothing";
    EXPECT_FALSE(Holds("contains \"was {ptr}\"", first, pointers)) << "a null pointer is no {ptr}";
    EXPECT_TRUE(Holds("contains \"was {null}\"", {{Text("was (nil)")}}, pointers));
}

TEST(Expectation, BoundsTakeTheFirstNumber) {
    EXPECT_TRUE(Holds("above 0.1", {{Bare("alpha"), Bare("0.2")}}));
    EXPECT_FALSE(Holds("below 0.1", {{Bare("alpha"), Bare("0.2")}}));
    EXPECT_FALSE(Holds("below 0.1", {}));
}

TEST(Expectation, NonsenseIsAnError) {
    EXPECT_THROW(Holds("equals 1", {}), ScriptError);
    EXPECT_THROW(Holds("is", {}), ScriptError);
    EXPECT_THROW(Holds("above x", {}), ScriptError);
    EXPECT_THROW(Holds("matches \"(\"", {}), ScriptError);
}

class LoaderTest : public testing::Test {
  protected:
    LoaderTest() : directory_(testing::TempDir() + "driver_script_test") {
        std::filesystem::create_directories(directory_ + "/steps");
    }
    ~LoaderTest() override {
        std::filesystem::remove_all(directory_);
    }
    std::string Write(const std::string &name, const std::string &text) {
        std::ofstream(directory_ + "/" + name) << text;
        return directory_ + "/" + name;
    }
    std::string directory_;
};

TEST_F(LoaderTest, IncludedLinesKeepTheirPlace) {
    const std::string steps = Write("steps/enter.scn", "host enter \"7\"\n");
    const std::string file = Write("main.scn", "wait 1\ninclude steps/enter.scn\nwait 2\n");
    const std::vector<Line> lines = LoadScript(file);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1].place.file, steps);
    EXPECT_EQ(lines[1].place.line, 1);
    EXPECT_EQ(lines[2].place.line, 3);
}

TEST_F(LoaderTest, MissingAndCircularFilesAreErrors) {
    const std::string missing = Write("missing.scn", "\ninclude nowhere.scn\n");
    EXPECT_THROW(
        {
            try {
                LoadScript(missing);
            } catch (const ScriptError &error) {
                EXPECT_EQ(std::string(error.what()).find(missing + ":2: cannot read "), 0U) << error.what();
                throw;
            }
        },
        ScriptError);
    EXPECT_THROW(LoadScript(Write("circle.scn", "include circle.scn\n")), ScriptError);
}

TEST_F(LoaderTest, AVocabularyPutsMeaningsForItsWords) {
    Vocabulary vocabulary;
    vocabulary.Load(Write("own.words", "target cell N means tag 1000 + N\nquery notes means lines Some.key # one\n"));
    const auto meaning = [&](const std::string &kind, const Words &line) {
        WordReader words({"a.scn", 1}, line);
        std::optional<Words> meant = vocabulary.Take(kind, words);
        if (meant) {
            Append(*meant, words.Rest());
        }
        return meant;
    };
    EXPECT_EQ(meaning("target", {Bare("cell"), Bare("7"), Bare("in")}),
              (Words{Bare("tag"), Bare("1000"), Bare("+"), Bare("7"), Bare("in")}));
    EXPECT_EQ(meaning("query", {Bare("notes"), Bare("last")}), (Words{Bare("lines"), Bare("Some.key"), Bare("last")}));
    EXPECT_EQ(meaning("query", {Bare("cell"), Bare("7")}), std::nullopt) << "a target is no query";
    EXPECT_EQ(meaning("target", {Text("cell")}), std::nullopt) << "a text is no word";
    EXPECT_THROW(meaning("target", {Bare("cell")}), ScriptError) << "the number is missing";
    EXPECT_THROW(vocabulary.Load(Write("bad.words", "verb cell means tap\n")), ScriptError);
    EXPECT_THROW(vocabulary.Load(Write("bad.words", "target cell is tag 1000\n")), ScriptError);
}

} // namespace
} // namespace sim::script
