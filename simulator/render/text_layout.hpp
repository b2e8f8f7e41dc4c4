#pragma once
// Breaking text into lines, measuring and drawing them. Text is UTF-16 as the platform's strings hold it and may be
// anything: halves of surrogate pairs and zero units show as replacement characters. All lengths are points.

#include "render/fonts.hpp"

#include <cstddef>
#include <limits>
#include <string_view>
#include <vector>

struct _cairo;

namespace sim {

enum class Wrapping { kNone, kWord, kCharacter };

/// How text falls into lines. Without wrapping, or with a width that is not above zero, only the text's own line
/// ends break it.
struct LineStyle {
    FontFace face;
    Wrapping wrapping = Wrapping::kWord;
    double width = 0;
    friend bool operator==(const LineStyle &, const LineStyle &) = default;
};

/// One line: the units from start to end (its line end, if any, excluded).
struct TextLine {
    std::size_t start = 0;
    std::size_t end = 0;
    double width = 0;
    std::size_t seen = 0; // only units before this one decide where the line ends
};

/// What laid-out text fills: lines of equal height, the widest of them.
struct TextExtent {
    std::size_t lines = 0;
    double width = 0;
};

inline constexpr std::size_t kAllLines = std::numeric_limits<std::size_t>::max();

/// The first `limit` lines of the text. Even empty text has one line, and so has what follows a final line end.
std::vector<TextLine> BreakLines(std::u16string_view text, const LineStyle &style, std::size_t limit = kAllLines);

/// The extent of the first `limit` lines. Asking for prefixes of a text measured shortly before is cheap: only their
/// last lines are laid out.
TextExtent MeasureText(std::u16string_view text, const LineStyle &style, std::size_t limit = kAllLines);

enum class Truncation { kNone, kHead, kMiddle, kTail };

/// Where a line goes: its box's left edge and width, its baseline, its place in the box (0 left, 0.5 middle, 1 right).
struct LineBox {
    double x = 0;
    double baseline = 0;
    double width = 0;
    double alignment = 0;
};

/// Draws text as one line in the context's source colour; what is wider than the box is shortened with an ellipsis
/// or, with Truncation::kNone, runs over.
void DrawLine(_cairo *context, std::u16string_view text, const FontFace &face, const LineBox &box,
              Truncation truncation = Truncation::kNone);

} // namespace sim
