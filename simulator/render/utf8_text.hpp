#pragma once
// UTF-16 text as Pango takes it.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

/// The text in UTF-8, and for each of its characters the unit at which it starts. `shown` says what stands for a
/// character, of which U+0000 and lone surrogates must not stand for themselves.
struct Utf8Text {
    std::string bytes;
    std::vector<std::size_t> starts;

    Utf8Text(std::u16string_view text, char32_t (*shown)(char32_t character));
};

} // namespace sim
