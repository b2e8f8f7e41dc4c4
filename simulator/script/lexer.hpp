#pragma once
// Script text to lines of words.

#include "script/words.hpp"

namespace sim::script {

/// A line that holds at least one word.
struct Line {
    Place place;
    std::vector<Word> words;
};

/// Splits the text of a file into lines of words. Words stand apart by blanks; '#' at the
/// beginning of a word begins a comment, save for a colour as in #FF2D55; quotes hold text with the escapes \n \t \0 \"
/// \\ and \uXXXX (one UTF-16 unit). Throws ScriptError.
std::vector<Line> Lex(std::string_view text, const std::string &file);

} // namespace sim::script
