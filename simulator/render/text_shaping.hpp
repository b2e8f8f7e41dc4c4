#pragma once
// Shaping: how wide each unit of a paragraph is and where lines may break. Results depend on the text alone, never on
// what was shaped before, and of a cut paragraph only the last few units differ from the whole one's.

#include "render/fonts.hpp"
#include "render/surface.hpp"

#include <cstddef>
#include <pango/pango.h>
#include <string_view>
#include <vector>

namespace sim {

/// One UTF-16 unit. The second half of a surrogate pair has no width and no breaks.
struct ShapedUnit {
    int advance = 0;             // Pango units, 1024 a point
    bool lineBreak = false;      // a line may end before it
    bool characterBreak = false; // a character, as readers see it, starts here
    bool white = false;
};

/// Appends the shapes of a paragraph's units from `from` on, which must be 0 or what SettledUnits gave. The paragraph
/// holds no line ends.
void ShapeParagraph(std::u16string_view paragraph, const FontFace &face, std::size_t from,
                    std::vector<ShapedUnit> &units);

/// How many units at the front of a paragraph keep their shapes when it is cut to `length` units.
std::size_t SettledUnits(std::u16string_view paragraph, std::size_t length);

using Layout = std::unique_ptr<PangoLayout, Destroyer<g_object_unref>>;

/// Pango's layout of a text without line ends, in one line.
Layout MakeLayout(std::u16string_view text, const FontFace &face);

} // namespace sim
