#include "render/text_shaping.hpp"

#include "render/utf8_text.hpp"
#include "runtime/utf16.hpp"

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

// Pango's cost grows with the square of a paragraph's length and its lengths are 32-bit numbers, so paragraphs are
// shaped in pieces of this many units, each seen together with some of what stands around it.
constexpr std::size_t kPiece = 128;
constexpr std::size_t kContext = 32;

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kWordJoiner = 0x2060;
constexpr char32_t kEmSpace = 0x2003;

/// What is laid out for a character of the text.
char32_t Shown(char32_t character) {
    if (character == 0 || IsSurrogate(character)) {
        return kReplacement;
    }
    if (character == U'\t') {
        return kEmSpace; // a tab is as wide wherever it stands
    }
    return character < 0x20 || character == 0x7F ? kWordJoiner : character; // control characters take no room
}

/// Sets the letters of tracked fonts closer or wider, whatever stands beside them. Pango's own letter spacing depends
/// on where a line begins and ends.
void Track(PangoLayout *layout, const FontFace &face) {
    const int tracking = static_cast<int>(std::lround(TrackingOf(face) * PANGO_SCALE));
    PangoLayoutLine *line = pango_layout_get_line(layout, 0);
    for (GSList *run = line->runs; run != nullptr; run = run->next) {
        const auto *item = static_cast<PangoGlyphItem *>(run->data);
        if (!IsTracked(item->item->analysis.font)) {
            continue;
        }
        for (int i = 0; i < item->glyphs->num_glyphs; ++i) {
            PangoGlyphInfo &glyph = item->glyphs->glyphs[i];
            if (glyph.attr.is_cluster_start != 0 && glyph.geometry.width > 0) {
                glyph.geometry.width += tracking;
            }
        }
    }
}

Layout LayoutOf(const Utf8Text &text, const FontFace &face) {
    Layout layout(pango_layout_new(TextContext()));
    pango_layout_set_font_description(layout.get(), DescriptionOf(face));
    pango_layout_set_auto_dir(layout.get(), FALSE); // a piece's direction must not depend on where it starts
    pango_layout_set_text(layout.get(), text.bytes.data(), static_cast<int>(text.bytes.size()));
    Track(layout.get(), face);
    return layout;
}

std::size_t PieceStart(std::u16string_view paragraph, std::size_t piece) {
    return BetweenPairs(paragraph, std::min(piece * kPiece, paragraph.size()));
}

/// The shapes of all units of a short text.
std::vector<ShapedUnit> Shape(std::u16string_view text, const FontFace &face) {
    const Utf8Text utf8(text, &Shown);
    const Layout layout = LayoutOf(utf8, face);
    std::vector<ShapedUnit> units(text.size());
    int count = 0;
    const PangoLogAttr *attributes = pango_layout_get_log_attrs_readonly(layout.get(), &count);
    for (std::size_t i = 0; i < utf8.starts.size(); ++i) {
        ShapedUnit &unit = units[utf8.starts[i]];
        unit.lineBreak = attributes[i].is_line_break != 0;
        unit.characterBreak = attributes[i].is_char_break != 0 && attributes[i].is_cursor_position != 0;
        unit.white = attributes[i].is_white != 0;
    }
    std::vector<int> widths;
    for (GSList *run = pango_layout_get_line_readonly(layout.get(), 0)->runs; run != nullptr; run = run->next) {
        auto *glyphs = static_cast<PangoGlyphItem *>(run->data);
        widths.resize(static_cast<std::size_t>(glyphs->item->num_chars));
        pango_glyph_item_get_logical_widths(glyphs, utf8.bytes.data(), widths.data());
        const auto first = static_cast<std::size_t>(
            g_utf8_pointer_to_offset(utf8.bytes.data(), utf8.bytes.data() + glyphs->item->offset));
        for (std::size_t i = 0; i < widths.size(); ++i) {
            units[utf8.starts[first + i]].advance = widths[i];
        }
    }
    return units;
}

} // namespace

void ShapeParagraph(std::u16string_view paragraph, const FontFace &face, std::size_t from,
                    std::vector<ShapedUnit> &units) {
    for (std::size_t piece = (from + kPiece - 1) / kPiece; PieceStart(paragraph, piece) < paragraph.size(); ++piece) {
        const std::size_t start = PieceStart(paragraph, piece);
        const std::size_t end = PieceStart(paragraph, piece + 1);
        const std::size_t seenFrom = BetweenPairs(paragraph, start - std::min(start, kContext));
        const std::size_t seenTo = BetweenPairs(paragraph, std::min(end + kContext, paragraph.size()));
        const std::vector<ShapedUnit> seen = Shape(paragraph.substr(seenFrom, seenTo - seenFrom), face);
        const auto first = seen.begin() + static_cast<std::ptrdiff_t>(start - seenFrom);
        units.insert(units.end(), first, first + static_cast<std::ptrdiff_t>(end - start));
    }
}

std::size_t SettledUnits(std::u16string_view paragraph, std::size_t length) {
    // A piece is settled when all that it sees lies before the cut, whole pairs included.
    return length > kContext ? PieceStart(paragraph, (length - kContext - 1) / kPiece) : 0;
}

Layout MakeLayout(std::u16string_view text, const FontFace &face) {
    return LayoutOf(Utf8Text(text, &Shown), face);
}

} // namespace sim
