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

/// Sets the letters of a tracked font closer or wider, whatever stands beside them. Pango's own letter spacing depends
/// on where a line begins and ends.
void Track(const PangoGlyphItem &run, int tracking) {
    if (!IsTracked(run.item->analysis.font)) {
        return;
    }
    for (int i = 0; i < run.glyphs->num_glyphs; ++i) {
        PangoGlyphInfo &glyph = run.glyphs->glyphs[i];
        if (glyph.attr.is_cluster_start != 0 && glyph.geometry.width > 0) {
            glyph.geometry.width += tracking;
        }
    }
}

int TrackingUnits(const FontFace &face) {
    return static_cast<int>(std::lround(TrackingOf(face) * PANGO_SCALE));
}

std::size_t PieceStart(std::u16string_view paragraph, std::size_t piece) {
    return BetweenPairs(paragraph, std::min(piece * kPiece, paragraph.size()));
}

using Glyphs = std::unique_ptr<PangoGlyphString, Destroyer<pango_glyph_string_free>>;

void FreeItems(GList *items) {
    g_list_free_full(items, [](void *item) { pango_item_free(static_cast<PangoItem *>(item)); });
}
using Items = std::unique_ptr<GList, Destroyer<FreeItems>>;

/// The runs of a text in one font and direction each, and where it may be broken.
struct ItemizedText {
    ItemizedText(const Utf8Text &text, const FontFace &face) : attributes(text.starts.size() + 1) {
        const char *const bytes = text.bytes.data();
        const int length = static_cast<int>(text.bytes.size());
        pango_context_set_font_description(TextContext(), DescriptionOf(face));
        // A piece's direction must not depend on where it starts.
        items.reset(
            pango_itemize_with_base_dir(TextContext(), PANGO_DIRECTION_LTR, bytes, 0, length, nullptr, nullptr));
        pango_default_break(bytes, length, nullptr, attributes.data(), static_cast<int>(attributes.size()));
        PangoLogAttr *at = attributes.data();
        for (GList *link = items.get(); link != nullptr; link = link->next) {
            auto *item = static_cast<PangoItem *>(link->data);
            pango_tailor_break(bytes + item->offset, item->length, &item->analysis, item->offset, at,
                               item->num_chars + 1);
            at += item->num_chars;
        }
    }

    Items items;
    std::vector<PangoLogAttr> attributes; // one a character, and one for the end
};

/// The shapes of all units of a short text. They are what a PangoLayout would have in one line; but that measures the
/// ink of every glyph besides, which means to read its outline or its picture, and is asked for by nobody.
std::vector<ShapedUnit> Shape(std::u16string_view text, const FontFace &face) {
    std::vector<ShapedUnit> units(text.size());
    if (text.empty()) {
        return units;
    }
    const Utf8Text utf8(text, &Shown);
    ItemizedText itemized(utf8, face);
    std::vector<PangoLogAttr> &attributes = itemized.attributes;
    for (std::size_t i = 0; i < utf8.starts.size(); ++i) {
        ShapedUnit &unit = units[utf8.starts[i]];
        unit.lineBreak = attributes[i].is_line_break != 0;
        unit.characterBreak = attributes[i].is_char_break != 0 && attributes[i].is_cursor_position != 0;
        unit.white = attributes[i].is_white != 0;
    }
    const int tracking = TrackingUnits(face);
    const Glyphs glyphs(pango_glyph_string_new());
    std::vector<int> widths;
    std::size_t first = 0; // of the run's characters
    for (GList *link = itemized.items.get(); link != nullptr; link = link->next) {
        PangoGlyphItem run{};
        run.item = static_cast<PangoItem *>(link->data);
        run.glyphs = glyphs.get();
        pango_shape_item(run.item, utf8.bytes.data(), static_cast<int>(utf8.bytes.size()), attributes.data() + first,
                         run.glyphs, PANGO_SHAPE_NONE);
        Track(run, tracking);
        widths.resize(static_cast<std::size_t>(run.item->num_chars));
        pango_glyph_item_get_logical_widths(&run, utf8.bytes.data(), widths.data());
        for (std::size_t i = 0; i < widths.size(); ++i) {
            units[utf8.starts[first + i]].advance = widths[i];
        }
        first += widths.size();
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
    const Utf8Text utf8(text, &Shown);
    Layout layout(pango_layout_new(TextContext()));
    pango_layout_set_font_description(layout.get(), DescriptionOf(face));
    pango_layout_set_auto_dir(layout.get(), FALSE); // as it was measured
    pango_layout_set_text(layout.get(), utf8.bytes.data(), static_cast<int>(utf8.bytes.size()));
    const int tracking = TrackingUnits(face);
    for (GSList *run = pango_layout_get_line(layout.get(), 0)->runs; run != nullptr; run = run->next) {
        Track(*static_cast<PangoGlyphItem *>(run->data), tracking);
    }
    return layout;
}

} // namespace sim
