#pragma once
// What an expectation says of an answer, and whether it holds. Knows nothing of the phone.

#include "script/words.hpp"

#include <map>

namespace sim::script {

/// A fact as one text: the raw text of a single quoted word, otherwise the words as a script writes them.
std::string PlainText(const Fact &fact);

/// Pointers met so far under the names of {ptr:NAME} placeholders.
using Pointers = std::map<std::string, std::string>;

/// The right-hand side of an expectation, read from the words that follow the query.
class Expectation {
  public:
    /// Reads `is WORDS`, `contains WORDS`, `matches REGEX`, `above N`, `below N` or nothing (the thing is there).
    /// Throws ScriptError.
    static Expectation Read(WordReader &words);
    /// Whether the word begins an expectation, and so ends a query.
    static bool Begins(const Word &word);

    /// Whether the answer is as expected. Pointers that placeholders name are remembered when it is.
    bool Holds(const Answer &answer, Pointers &pointers) const;
    /// " is 5", for messages; empty when the thing is only to be there.
    std::string Describe() const;

  private:
    std::string verb_; // empty: the thing is to be there
    std::vector<Word> words_;
};

} // namespace sim::script
