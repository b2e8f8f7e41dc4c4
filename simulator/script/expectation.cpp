#include "script/expectation.hpp"

#include "script/text.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <regex>
#include <utility>

namespace sim::script {
namespace {

constexpr double kTolerance = 0.01;
constexpr std::string_view kPointer = "{ptr";
constexpr std::string_view kNull = "{null}";

/// The length of a pointer in hexadecimal at the front of the text; 0 when there is none.
std::size_t PointerLength(std::string_view text) {
    if (!text.starts_with("0x")) {
        return 0;
    }
    const std::size_t end = text.find_first_not_of("0123456789abcdefABCDEF", 2);
    const std::size_t length = end == std::string_view::npos ? text.size() : end;
    return length > 2 ? length : 0;
}

bool IsNull(std::string_view pointer) {
    return pointer.find_first_not_of("0x") == std::string_view::npos;
}

/// The name in "{ptr:NAME}" or "{ptr}" (empty) at the front of a pattern, stepping past it; nothing when it is neither.
std::optional<std::string> TakePlaceholder(std::string_view &pattern) {
    if (!pattern.starts_with(kPointer)) {
        return std::nullopt;
    }
    const std::size_t close = pattern.find('}');
    const std::string_view inner = pattern.substr(kPointer.size(), close - kPointer.size());
    if (close == std::string_view::npos || (!inner.empty() && inner.front() != ':')) {
        return std::nullopt;
    }
    pattern.remove_prefix(close + 1);
    return std::string(inner.empty() ? inner : inner.substr(1));
}

/// Matches a pattern at the front of the text; the rest of the text, or nothing.
std::optional<std::string_view> MatchFront(std::string_view pattern, std::string_view text, Pointers &pointers) {
    while (!pattern.empty()) {
        if (pattern.starts_with(kNull)) {
            const std::size_t length = text.starts_with("(nil)") ? 5 : PointerLength(text);
            if (length == 0 || (text.front() != '(' && !IsNull(text.substr(0, length)))) {
                return std::nullopt;
            }
            pattern.remove_prefix(kNull.size());
            text.remove_prefix(length);
            continue;
        }
        if (const std::optional<std::string> name = TakePlaceholder(pattern)) {
            const std::string pointer(text.substr(0, PointerLength(text)));
            if (pointer.empty() || IsNull(pointer)) {
                return std::nullopt;
            }
            if (!name->empty() && pointers.try_emplace(*name, pointer).first->second != pointer) {
                return std::nullopt;
            }
            text.remove_prefix(pointer.size());
            continue;
        }
        if (text.empty() || text.front() != pattern.front()) {
            return std::nullopt;
        }
        pattern.remove_prefix(1);
        text.remove_prefix(1);
    }
    return text;
}

bool SameWord(const Word &expected, const Word &found, Pointers &pointers) {
    const std::optional<double> left = ParseNumber(expected);
    const std::optional<double> right = ParseNumber(found);
    if (left && right) {
        return *left == *right || std::abs(*left - *right) <= kTolerance; // infinities differ by nothing at all
    }
    const std::optional<std::string_view> rest = MatchFront(expected.text, found.text, pointers);
    return rest && rest->empty();
}

bool Is(std::span<const Word> expected, const Answer &answer, Pointers &pointers) {
    if (answer.empty()) {
        return expected.size() == 1 && expected.front() == Bare("absent");
    }
    std::size_t at = 0;
    for (const Fact &fact : answer) {
        for (const Word &word : fact) {
            if (at == expected.size() || !SameWord(expected[at], word, pointers)) {
                return false;
            }
            ++at;
        }
    }
    return at == expected.size();
}

bool Contains(const std::string &part, const Answer &answer, Pointers &pointers) {
    for (const Fact &fact : answer) {
        const std::string text = PlainText(fact);
        for (std::size_t start = 0; start <= text.size(); ++start) {
            Pointers trial = pointers;
            if (MatchFront(part, std::string_view(text).substr(start), trial)) {
                pointers = std::move(trial);
                return true;
            }
        }
    }
    return false;
}

bool Matches(const std::string &pattern, const Answer &answer) {
    const std::regex regex(pattern);
    return std::ranges::any_of(answer, [&](const Fact &fact) { return std::regex_search(PlainText(fact), regex); });
}

std::optional<double> FirstNumber(const Answer &answer) {
    for (const Fact &fact : answer) {
        for (const Word &word : fact) {
            if (const std::optional<double> number = ParseNumber(word)) {
                return number;
            }
        }
    }
    return std::nullopt;
}

} // namespace

std::string PlainText(const Fact &fact) {
    return fact.size() == 1 ? fact.front().text : Render(fact);
}

bool Expectation::Begins(const Word &word) {
    constexpr std::string_view kVerbs[] = {"is", "contains", "matches", "above", "below"};
    return !word.quoted && std::ranges::find(kVerbs, word.text) != std::end(kVerbs);
}

Expectation Expectation::Read(WordReader &words) {
    Expectation result;
    if (words.AtEnd()) {
        return result;
    }
    const Word &verb = words.Next("a verb");
    if (!Begins(verb)) {
        words.Fail("expected is, contains, matches, above or below, not " + Render({&verb, 1}));
    }
    result.verb_ = verb.text;
    if (words.AtEnd()) {
        words.Fail("expected a value after '" + verb.text + "'");
    }
    const std::span<const Word> rest = words.Rest();
    result.words_.assign(rest.begin(), rest.end());
    if (verb.text == "above" || verb.text == "below") {
        WordReader bound(words.place(), rest);
        bound.Number("the bound");
        bound.End();
    } else if (verb.text == "matches") {
        try {
            std::regex(PlainText(result.words_));
        } catch (const std::regex_error &error) {
            words.Fail(std::string("bad regular expression: ") + error.what());
        }
    }
    return result;
}

bool Expectation::Holds(const Answer &answer, Pointers &pointers) const {
    if (verb_.empty()) {
        return !answer.empty();
    }
    if (verb_ == "matches") {
        return Matches(PlainText(words_), answer);
    }
    if (verb_ == "above" || verb_ == "below") {
        const std::optional<double> number = FirstNumber(answer);
        const double bound = ParseNumber(words_.front()).value_or(0);
        return number && (verb_ == "above" ? *number > bound : *number < bound);
    }
    Pointers trial = pointers;
    const bool holds = verb_ == "is" ? Is(words_, answer, trial) : Contains(PlainText(words_), answer, trial);
    if (holds) {
        pointers = std::move(trial);
    }
    return holds;
}

std::string Expectation::Describe() const {
    return verb_.empty() ? "" : " " + verb_ + " " + Render(words_);
}

} // namespace sim::script
