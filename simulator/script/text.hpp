#pragma once
// Text between a script (UTF-8) and the phone (UTF-16). A lone surrogate, which a phone's string may hold, stands in
// UTF-8 as the three bytes that its code point would have.

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace sim::script {

/// The characters that stand escaped in quotes, and the letter behind the backslash of each.
inline constexpr std::pair<char, char> kEscapes[] = {{'\n', 'n'}, {'\t', 't'}, {'\0', '0'}, {'"', '"'}, {'\\', '\\'}};

/// UTF-16 units of a UTF-8 text; nothing when the bytes are not UTF-8 (lone surrogates are let through).
std::optional<std::u16string> ToUtf16(std::string_view text);

/// The UTF-8 form of any UTF-16 units; two surrogates that make a pair become one character.
std::string ToUtf8(std::u16string_view units);

/// The text in double quotes, written so that a script can hold it on one line: escapes for the quote, the
/// backslash, control characters and lone surrogates.
std::string Quoted(std::string_view text);

/// A number as facts show it: at most so many decimals, no trailing zeros, never "-0".
std::string FormatNumber(double value, int decimals = 4);

} // namespace sim::script
