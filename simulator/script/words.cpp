#include "script/words.hpp"

#include "script/text.hpp"

#include <charconv>
#include <utility>

namespace sim::script {

ScriptError::ScriptError(const Place &place, std::string_view message)
    : std::runtime_error(place.file + ":" + std::to_string(place.line) + ": " + std::string(message)) {}

Word Bare(std::string_view text) {
    return {std::string(text), false};
}

Word Bare(double number) {
    return {FormatNumber(number), false};
}

Word Text(std::string_view text) {
    return {std::string(text), true};
}

void Append(Fact &fact, std::span<const Word> more) {
    fact.insert(fact.end(), more.begin(), more.end());
}

std::string Render(std::span<const Word> words) {
    std::string line;
    for (const Word &word : words) {
        if (!line.empty()) {
            line += ' ';
        }
        line += word.quoted ? Quoted(word.text) : word.text;
    }
    return line;
}

std::optional<double> ParseNumber(const Word &word) {
    if (word.quoted || word.text.empty()) {
        return std::nullopt;
    }
    double number = 0;
    const char *begin = word.text.data() + (word.text.front() == '+' ? 1 : 0);
    const char *end = word.text.data() + word.text.size();
    const auto [stop, error] = std::from_chars(begin, end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

bool WordReader::Sees(std::string_view bare) const {
    return !words_.empty() && !words_.front().quoted && words_.front().text == bare;
}

bool WordReader::SeesText() const {
    return !words_.empty() && words_.front().quoted;
}

bool WordReader::SeesNumber() const {
    return !words_.empty() && ParseNumber(words_.front());
}

bool WordReader::Take(std::string_view bare) {
    if (!Sees(bare)) {
        return false;
    }
    words_ = words_.subspan(1);
    return true;
}

void WordReader::Expect(std::string_view bare) {
    if (!Take(bare)) {
        Fail("expected '" + std::string(bare) + "'" + (AtEnd() ? "" : " before " + Render(words_.first(1))));
    }
}

const Word &WordReader::Next(std::string_view what) {
    if (words_.empty()) {
        Fail("expected " + std::string(what));
    }
    const Word &word = words_.front();
    words_ = words_.subspan(1);
    return word;
}

const std::string &WordReader::Name(std::string_view what) {
    const Word &word = Next(what);
    if (word.quoted) {
        Fail("expected " + std::string(what) + ", not the text " + Quoted(word.text));
    }
    return word.text;
}

const std::string &WordReader::QuotedText(std::string_view what) {
    const Word &word = Next(what);
    if (!word.quoted) {
        Fail("expected " + std::string(what) + " in quotes, not " + word.text);
    }
    return word.text;
}

double WordReader::Number(std::string_view what) {
    const Word &word = Next(what);
    const std::optional<double> number = ParseNumber(word);
    if (!number) {
        Fail("expected " + std::string(what) + " (a number), not " + Render({&word, 1}));
    }
    return *number;
}

long WordReader::Integer(std::string_view what) {
    const Word &word = Next(what);
    long number = 0;
    const char *end = word.text.data() + word.text.size();
    const auto [stop, error] = std::from_chars(word.text.data(), end, number);
    if (word.quoted || error != std::errc() || stop != end) {
        Fail("expected " + std::string(what) + " (a whole number), not " + Render({&word, 1}));
    }
    return number;
}

std::span<const Word> WordReader::Rest() {
    return std::exchange(words_, {});
}

void WordReader::End() const {
    if (!words_.empty()) {
        Fail("nothing expected after this: " + Render(words_));
    }
}

void WordReader::Fail(std::string_view message) const {
    throw ScriptError(place_, message);
}

} // namespace sim::script
