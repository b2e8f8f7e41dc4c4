#include "script/lexer.hpp"

#include "script/text.hpp"

#include <algorithm>
#include <charconv>

namespace sim::script {
namespace {

class LineLexer {
  public:
    LineLexer(std::string_view text, Place place) : text_(text), place_(std::move(place)) {}

    std::vector<Word> Words() {
        std::vector<Word> words;
        for (SkipBlanks(); !text_.empty() && !SeesComment(); SkipBlanks()) {
            words.push_back(text_.front() == '"' ? QuotedWord() : BareWord());
            if (!text_.empty() && !IsBlank(text_.front())) {
                Fail("a blank is missing between words");
            }
        }
        return words;
    }

  private:
    static bool IsBlank(char c) {
        return c == ' ' || c == '\t' || c == '\r';
    }

    void SkipBlanks() {
        while (!text_.empty() && IsBlank(text_.front())) {
            text_.remove_prefix(1);
        }
    }

    /// '#' begins a comment, unless what follows makes it a colour.
    bool SeesComment() const {
        constexpr std::size_t kColor = 7;
        const bool color = text_.find_first_not_of("0123456789ABCDEFabcdef", 1) >= kColor && text_.size() >= kColor &&
                           (text_.size() == kColor || IsBlank(text_[kColor]));
        return text_.front() == '#' && !color;
    }

    [[noreturn]] void Fail(std::string_view message) const {
        throw ScriptError(place_, message);
    }

    char TakeChar() {
        if (text_.empty()) {
            Fail("the quotes are not closed");
        }
        const char c = text_.front();
        text_.remove_prefix(1);
        return c;
    }

    Word BareWord() {
        std::size_t length = 0;
        while (length < text_.size() && !IsBlank(text_[length]) && text_[length] != '"') {
            ++length;
        }
        Word word{std::string(text_.substr(0, length)), false};
        text_.remove_prefix(length);
        if (!ToUtf16(word.text)) {
            Fail("the line is not UTF-8");
        }
        return word;
    }

    Word QuotedWord() {
        TakeChar();
        std::u16string units;
        std::string plain; // the stretch since the last escape
        const auto flush = [&] {
            const std::optional<std::u16string> more = ToUtf16(plain);
            if (!more) {
                Fail("the line is not UTF-8");
            }
            units += *more;
            plain.clear();
        };
        for (char c = TakeChar(); c != '"'; c = TakeChar()) {
            if (c != '\\') {
                plain.push_back(c);
                continue;
            }
            flush();
            units.push_back(Escape());
        }
        flush();
        return {ToUtf8(units), true};
    }

    char16_t Escape() {
        const char letter = TakeChar();
        if (letter == 'u') {
            return HexUnit();
        }
        const auto *const escape = std::ranges::find(kEscapes, letter, &std::pair<char, char>::second);
        if (escape == std::end(kEscapes)) {
            Fail(std::string("unknown escape \\") + letter);
        }
        return static_cast<char16_t>(escape->first);
    }

    char16_t HexUnit() {
        unsigned unit = 0;
        const char *begin = text_.data();
        const char *end = begin + std::min<std::size_t>(4, text_.size());
        const auto [stop, error] = std::from_chars(begin, end, unit, 16);
        if (error != std::errc() || stop != begin + 4) {
            Fail("\\u wants four hexadecimal digits");
        }
        text_.remove_prefix(4);
        return static_cast<char16_t>(unit);
    }

    std::string_view text_;
    Place place_;
};

} // namespace

std::vector<Line> Lex(std::string_view text, const std::string &file) {
    std::vector<Line> lines;
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const Place place{file, number};
        std::vector<Word> words = LineLexer(text.substr(0, end), place).Words();
        if (!words.empty()) {
            lines.push_back({place, std::move(words)});
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

} // namespace sim::script
