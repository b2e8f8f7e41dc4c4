#pragma once
// The words of a line, as commands, queries and host events take them. Stands on nothing but text.

#include <concepts>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace sim::script {

/// Where a line stands, for messages.
struct Place {
    std::string file;
    int line = 0;
};

/// A line that cannot be carried out: what() is "file:line: message".
class ScriptError : public std::runtime_error {
  public:
    ScriptError(const Place &place, std::string_view message);
};

/// One word of a line, or of a fact: bare (a name, a number) or text that stood in quotes.
struct Word {
    std::string text; // UTF-8
    bool quoted = false;
    friend bool operator==(const Word &, const Word &) = default;
};

/// One fact of an answer, as words.
using Fact = std::vector<Word>;
/// What a query found, in its own order; empty when the thing asked for is not there.
using Answer = std::vector<Fact>;

/// Short forms for building facts.
Word Bare(std::string_view text);
Word Bare(double number);
template <std::integral T> Word Bare(T number) {
    if constexpr (std::same_as<T, bool>) {
        return Bare(number ? "true" : "false");
    } else {
        return Bare(std::to_string(number));
    }
}
Word Text(std::string_view text);

/// Adds the words of another fact.
void Append(Fact &fact, std::span<const Word> more);

/// Words as a script would write them, one space between.
std::string Render(std::span<const Word> words);

/// Walks over the words of one line; everything that is missing or surplus is an error with the line's place.
class WordReader {
  public:
    WordReader(Place place, std::span<const Word> words) : place_(std::move(place)), words_(words) {}

    const Place &place() const {
        return place_;
    }
    bool AtEnd() const {
        return words_.empty();
    }
    /// Whether the next word is this bare one; does not step.
    bool Sees(std::string_view bare) const;
    /// Whether the next word stood in quotes; does not step.
    bool SeesText() const;
    /// Whether the next word is a bare number; does not step.
    bool SeesNumber() const;
    /// Steps over the bare word when it is next.
    bool Take(std::string_view bare);
    /// Steps over the bare word, which must be next.
    void Expect(std::string_view bare);
    /// The next word, whichever form; `what` names it in the error.
    const Word &Next(std::string_view what);
    /// The next word, which must be bare.
    const std::string &Name(std::string_view what);
    /// The next word, which must have stood in quotes.
    const std::string &QuotedText(std::string_view what);
    double Number(std::string_view what);
    long Integer(std::string_view what);
    /// All words that are left; steps over them.
    std::span<const Word> Rest();
    /// Nothing may be left.
    void End() const;
    [[noreturn]] void Fail(std::string_view message) const;

  private:
    Place place_;
    std::span<const Word> words_;
};

/// The number that a bare word spells whole, as in "-1.5".
std::optional<double> ParseNumber(const Word &word);

} // namespace sim::script

namespace sim {

// What drivers and hosts speak in all the time.
using script::Answer;
using script::Bare;
using script::Fact;
using script::Word;
using script::WordReader;

} // namespace sim
