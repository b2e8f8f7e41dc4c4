#pragma once
// What the matrix looks like, whatever its size and settings. The page that prepares a grid draws it from these as
// well.

#include "apple/foundation/string.hpp"

namespace corvel {

inline constexpr ns::Literal kMatrixTitle = "Corvel"_literal;

/// Lengths are points. The title's size is before scaling.
inline constexpr double kPanelCornerRadius = 18;
inline constexpr double kCellCornerRadius = 8;
inline constexpr double kMatrixTitleSize = 13;

/// How opaque the chosen colours are drawn, and the title's white.
inline constexpr double kMatrixBackgroundAlpha = 0.5;
inline constexpr double kCellBackgroundAlpha = 0.6;
inline constexpr double kCellTextAlpha = 1.0;
inline constexpr double kMatrixTitleAlpha = 0.6;

/// How many UTF-16 units of a text are looked at for a cell's title: so many in any case, and so many for each square
/// of the font's size in the title's box. Scripts write up to ten units in one, emoji of many parts a dozen.
inline constexpr unsigned long kTitleUnitsAtLeast = 256;
inline constexpr double kTitleUnitsPerSquare = 64;

} // namespace corvel
