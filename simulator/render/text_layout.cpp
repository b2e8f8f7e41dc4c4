#include "render/text_layout.hpp"

#include "render/text_shaping.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <pango/pangocairo.h>
#include <string>

namespace sim {
namespace {

// Wider lines are not wrapped at all: no screen is that wide.
constexpr double kWidestLine = 100'000;
// More than this many units of one line are not drawn.
constexpr std::size_t kLongestDrawnLine = 4096;
constexpr std::size_t kCachedTexts = 8;
// A few lines need few units: paragraphs are shaped so far at first, then ever farther.
constexpr std::size_t kFirstUnits = 1024;

bool IsLineEnd(char16_t unit) {
    return unit == u'\n' || unit == u'\r' || unit == 0x85 || unit == 0x2028 || unit == 0x2029;
}

bool Wraps(const LineStyle &style) {
    return style.wrapping != Wrapping::kNone && style.width > 0 && style.width < kWidestLine;
}

std::size_t ParagraphEnd(std::u16string_view text, std::size_t from) {
    const auto *const found = std::find_if(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), IsLineEnd);
    return static_cast<std::size_t>(found - text.begin());
}

/// Shaped units that stand in for those of a text from the unit `base` on.
struct ShapedText {
    std::vector<ShapedUnit> units;
    std::size_t base = 0;

    const ShapedUnit &operator[](std::size_t unit) const {
        return units[unit - base];
    }
};

/// The line that starts at `start` in a paragraph that ends at `end`, its width still missing. It ends at the last
/// place to break before what overflows, else in the middle of the word, after one character at least. White space
/// never overflows.
TextLine WrappedLine(const ShapedText &shapes, std::size_t start, std::size_t end, const LineStyle &style) {
    const auto limit = static_cast<long>(std::ceil(style.width * PANGO_SCALE));
    std::size_t lineBreak = start;
    std::size_t characterBreak = start;
    long width = 0;
    for (std::size_t i = start; i < end; ++i) {
        const ShapedUnit &unit = shapes[i];
        const bool breaks = style.wrapping == Wrapping::kCharacter ? unit.characterBreak : unit.lineBreak;
        lineBreak = breaks ? i : lineBreak;
        characterBreak = unit.characterBreak ? i : characterBreak;
        width += unit.advance;
        if (width > limit && !unit.white && std::max(lineBreak, characterBreak) > start) {
            return {start, lineBreak > start ? lineBreak : characterBreak, 0, i + 1};
        }
    }
    return {start, end, 0, end + 1};
}

double WidthOf(const ShapedText &shapes, const TextLine &line, bool endsParagraph) {
    std::size_t end = line.end;
    while (!endsParagraph && end > line.start && shapes[end - 1].white) {
        --end; // white space at the end of a wrapped line hangs over
    }
    long width = 0;
    for (std::size_t i = line.start; i < end; ++i) {
        width += shapes[i].advance;
    }
    return static_cast<double>(width) / PANGO_SCALE;
}

/// Adds the lines of the paragraph that ends at `end`, from the unit `from` on, where a line starts.
void BreakParagraph(const ShapedText &shapes, std::size_t from, std::size_t end, const LineStyle &style,
                    std::size_t limit, std::vector<TextLine> &lines) {
    do {
        TextLine line = Wraps(style) ? WrappedLine(shapes, from, end, style) : TextLine{from, end, 0, end + 1};
        line.width = WidthOf(shapes, line, line.end == end);
        if (Wraps(style)) {
            line.width = std::min(line.width, style.width);
        }
        lines.push_back(line);
        from = line.end;
    } while (from < end && lines.size() < limit);
}

/// The start of the paragraph after the one that ends at `end`, which is not the text's end.
std::size_t NextParagraph(std::u16string_view text, std::size_t end) {
    const bool pair = text[end] == u'\r' && end + 1 < text.size() && text[end + 1] == u'\n';
    return end + (pair ? 2 : 1);
}

/// Adds lines of the paragraph from start to end while there are fewer than `limit`, shaping hardly more than they
/// need.
void ShapeAndBreak(std::u16string_view text, std::size_t start, std::size_t end, const LineStyle &style,
                   std::size_t limit, std::vector<TextLine> &lines) {
    const std::u16string_view paragraph = text.substr(start, end - start);
    const std::size_t before = lines.size();
    for (std::size_t length = limit == kAllLines ? paragraph.size() : kFirstUnits;; length *= 2) {
        const std::u16string_view front = paragraph.substr(0, length);
        ShapedText shapes{{}, start};
        ShapeParagraph(front, style.face, 0, shapes.units);
        BreakParagraph(shapes, start, start + front.size(), style, limit, lines);
        if (front.size() == paragraph.size() ||
            (lines.size() == limit && lines.back().seen <= start + SettledUnits(paragraph, front.size()))) {
            return;
        }
        lines.resize(before);
    }
}

TextExtent ExtentOf(const std::vector<TextLine> &lines) {
    TextExtent extent{lines.size(), 0};
    for (const TextLine &line : lines) {
        extent.width = std::max(extent.width, line.width);
    }
    return extent;
}

long SumOf(const std::vector<ShapedUnit> &units) {
    return std::accumulate(units.begin(), units.end(), 0L,
                           [](long sum, const ShapedUnit &unit) { return sum + unit.advance; });
}

/// The text, or when it is wider than the width what is left of it around an ellipsis.
std::u16string Shortened(std::u16string_view text, const FontFace &face, double width, Truncation truncation) {
    std::vector<ShapedUnit> units;
    ShapeParagraph(text, face, 0, units);
    const auto available = static_cast<long>(std::ceil(std::clamp(width, 0.0, kWidestLine) * PANGO_SCALE));
    if (truncation == Truncation::kNone || SumOf(units) <= available) {
        return std::u16string(text);
    }
    const long room = available - std::lround(LayoutSize(face) * PANGO_SCALE); // an ellipsis is up to an em wide
    const long frontRoom = truncation == Truncation::kTail ? room : truncation == Truncation::kMiddle ? room / 2 : 0;
    std::size_t front = 0;
    long frontWidth = 0;
    long sum = 0;
    for (std::size_t i = 0; i < units.size() && sum <= frontRoom; ++i) {
        if (units[i].characterBreak) {
            front = i;
            frontWidth = sum;
        }
        sum += units[i].advance;
    }
    std::size_t back = units.size();
    const long backRoom = truncation == Truncation::kTail ? 0 : room - frontWidth;
    sum = 0;
    for (std::size_t i = units.size(); i > front && (sum += units[i - 1].advance) <= backRoom; --i) {
        back = units[i - 1].characterBreak ? i - 1 : back;
    }
    std::u16string shortened(text.substr(0, front));
    shortened += u'…';
    return shortened.append(text.substr(back));
}

/// A measured text. Whoever fits a text into a box asks for ever shorter prefixes of it.
class MeasuredText {
  public:
    MeasuredText(std::u16string_view text, const LineStyle &style) : text_(text), style_(style) {
        for (std::size_t start = 0;;) {
            paragraphs_.push_back(start);
            const std::size_t end = ParagraphEnd(text_, start);
            ShapeParagraph(std::u16string_view(text_).substr(start, end - start), style.face, 0, shapes_.units);
            BreakParagraph(shapes_, start, end, style, kAllLines, lines_);
            if (end == text_.size()) {
                break;
            }
            start = NextParagraph(text_, end);
            shapes_.units.resize(start); // line ends have their places too
        }
        for (const TextLine &line : lines_) {
            widest_.push_back(std::max(line.width, widest_.empty() ? 0 : widest_.back()));
        }
    }

    bool Serves(std::u16string_view text, const LineStyle &style) const {
        return style_ == style && std::u16string_view(text_).starts_with(text);
    }

    /// The extent of the first `length` units: the same as if they were measured alone.
    TextExtent ExtentOfPrefix(std::size_t length) const {
        if (length == text_.size()) {
            return {lines_.size(), widest_.back()};
        }
        const std::u16string_view prefix = std::u16string_view(text_).substr(0, length);
        // A prefix may end between the two units of one line end, and then has a paragraph that the text has not.
        const bool endsParagraph = length > 0 && IsLineEnd(prefix.back());
        const std::size_t start = endsParagraph ? length : *(std::ranges::upper_bound(paragraphs_, length) - 1);
        const std::size_t settled = start + SettledUnits(prefix.substr(start), length - start);
        const auto firstNew = std::ranges::upper_bound(lines_, settled, {}, &TextLine::seen);
        const auto kept = static_cast<std::size_t>(firstNew - lines_.begin());
        const std::size_t from = std::max(start, kept > 0 ? lines_[kept - 1].end : 0);
        ShapedText shapes{{}, from};
        shapes.units.assign(shapes_.units.begin() + static_cast<std::ptrdiff_t>(from),
                            shapes_.units.begin() + static_cast<std::ptrdiff_t>(settled));
        ShapeParagraph(prefix.substr(start), style_.face, settled - start, shapes.units);
        std::vector<TextLine> tail;
        BreakParagraph(shapes, from, length, style_, kAllLines, tail);
        TextExtent extent = ExtentOf(tail);
        extent.lines += kept;
        extent.width = std::max(extent.width, kept > 0 ? widest_[kept - 1] : 0);
        return extent;
    }

  private:
    std::u16string text_;
    LineStyle style_;
    ShapedText shapes_;
    std::vector<std::size_t> paragraphs_; // where each starts
    std::vector<TextLine> lines_;
    std::vector<double> widest_; // of the lines so far
};

} // namespace

std::vector<TextLine> BreakLines(std::u16string_view text, const LineStyle &style, std::size_t limit) {
    std::vector<TextLine> lines;
    for (std::size_t start = 0; lines.size() < limit;) {
        const std::size_t end = ParagraphEnd(text, start);
        ShapeAndBreak(text, start, end, style, limit, lines);
        if (end == text.size()) {
            break;
        }
        start = NextParagraph(text, end);
    }
    return lines;
}

TextExtent MeasureText(std::u16string_view text, const LineStyle &style, std::size_t limit) {
    if (limit != kAllLines || !Wraps(style)) {
        return ExtentOf(BreakLines(text, style, limit));
    }
    static std::vector<MeasuredText> cache; // most recent first
    const auto known =
        std::ranges::find_if(cache, [&](const MeasuredText &entry) { return entry.Serves(text, style); });
    if (known != cache.end()) {
        std::rotate(cache.begin(), known, known + 1);
    } else {
        if (cache.size() == kCachedTexts) {
            cache.pop_back();
        }
        cache.insert(cache.begin(), MeasuredText(text, style));
    }
    return cache.front().ExtentOfPrefix(text.size());
}

void DrawLine(cairo_t *context, std::u16string_view text, const FontFace &face, const LineBox &box,
              Truncation truncation) {
    const Layout layout = MakeLayout(Shortened(text.substr(0, kLongestDrawnLine), face, box.width, truncation), face);
    PangoLayoutLine *line = pango_layout_get_line_readonly(layout.get(), 0);
    PangoRectangle extents;
    pango_layout_line_get_extents(line, nullptr, &extents);
    const double width = static_cast<double>(extents.width) / PANGO_SCALE;
    cairo_move_to(context, box.x + (box.width - width) * box.alignment, box.baseline);
    pango_cairo_show_layout_line(context, line);
}

} // namespace sim
