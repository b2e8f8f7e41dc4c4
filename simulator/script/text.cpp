#include "script/text.hpp"

#include "runtime/utf16.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdio>

namespace sim::script {
namespace {

void AppendUtf8(std::string &out, char32_t point) {
    const int tail = point < 0x80 ? 0 : point < 0x800 ? 1 : point < 0x10000 ? 2 : 3; // bytes after the first
    constexpr unsigned kFirst[] = {0, 0xC0, 0xE0, 0xF0};
    out.push_back(static_cast<char>(kFirst[tail] | (point >> (6 * tail))));
    for (int i = tail - 1; i >= 0; --i) {
        out.push_back(static_cast<char>(0x80 | ((point >> (6 * i)) & 0x3F)));
    }
}

/// How many bytes a character has that begins with this one; 0 when none begins so.
int SequenceLength(unsigned char first) {
    if (first < 0x80) {
        return 1;
    }
    const int ones = std::countl_one(first);
    return ones >= 2 && ones <= 4 ? ones : 0;
}

/// Takes one code point off the front of the text; nothing when the bytes are malformed.
std::optional<char32_t> TakePoint(std::string_view &text) {
    const auto first = static_cast<unsigned char>(text.front());
    const int length = SequenceLength(first);
    if (length == 0 || text.size() < static_cast<std::size_t>(length)) {
        return std::nullopt;
    }
    char32_t point = length == 1 ? first : first & (0xFF >> (length + 1));
    for (int i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[static_cast<std::size_t>(i)]);
        if ((byte >> 6) != 2) {
            return std::nullopt;
        }
        point = (point << 6) | (byte & 0x3F);
    }
    constexpr std::array<char32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
    if (point < kSmallest[static_cast<std::size_t>(length)] || point > 0x10FFFF) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(length));
    return point;
}

} // namespace

std::optional<std::u16string> ToUtf16(std::string_view text) {
    std::u16string units;
    while (!text.empty()) {
        const std::optional<char32_t> point = TakePoint(text);
        if (!point) {
            return std::nullopt;
        }
        AppendPoint(units, *point);
    }
    return units;
}

std::string ToUtf8(std::u16string_view units) {
    std::string out;
    for (std::size_t i = 0; i < units.size(); i += UnitCount(PointAt(units, i))) {
        AppendUtf8(out, PointAt(units, i));
    }
    return out;
}

std::string Quoted(std::string_view text) {
    std::string out = "\"";
    while (!text.empty()) {
        const std::optional<char32_t> point = TakePoint(text);
        if (!point) { // a byte that is no UTF-8 shows as the replacement character
            out += "\xEF\xBF\xBD";
            text.remove_prefix(1);
            continue;
        }
        const auto *const escape =
            std::ranges::find(kEscapes, *point, [](const auto &row) { return char32_t(row.first); });
        if (escape != std::end(kEscapes)) {
            out += {'\\', escape->second};
        } else if (*point < 0x20 || *point == 0x7F || IsSurrogate(*point)) {
            std::array<char, 8> buffer{};
            std::snprintf(buffer.data(), buffer.size(), "\\u%04X", static_cast<unsigned>(*point));
            out += buffer.data();
        } else {
            AppendUtf8(out, *point);
        }
    }
    out += '"';
    return out;
}

std::string FormatNumber(double value, int decimals) {
    if (std::isnan(value)) { // whose sign is nobody's business
        return "nan";
    }
    std::array<char, 400> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.*f", decimals, value);
    std::string text = buffer.data();
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') {
        text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

} // namespace sim::script
