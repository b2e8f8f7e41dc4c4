#pragma once
// How the panel's texts and boxes look. All lengths are panel points.

#include "apple/coregraphics/geometry.hpp"
#include "render/text_layout.hpp"
#include "uikit/color.hpp"

#include <string>

namespace sim::window {

inline constexpr Rgba kPanelColor{0.96, 0.965, 0.975, 1};
inline constexpr Rgba kBoxColor{1, 1, 1, 1};
inline constexpr Rgba kButtonColor{0.89, 0.9, 0.92, 1};
inline constexpr Rgba kPressedColor{0.76, 0.78, 0.82, 1};
inline constexpr Rgba kChosenColor{0.16, 0.43, 0.86, 1};
inline constexpr Rgba kTextColor{0.11, 0.12, 0.14, 1};
inline constexpr Rgba kPaleTextColor{0.42, 0.44, 0.48, 1};
inline constexpr FontFace kPanelFace{13, false};
inline constexpr FontFace kTitleFace{13, true};
inline constexpr FontFace kSmallFace{12, false};

/// Draws a UTF-8 text as one line in the middle of a box's height; 0 is left, 0.5 the middle. What does not fit ends
/// with an ellipsis.
void DrawText(_cairo *context, const std::string &text, const FontFace &face, Rgba color, cg::Rect box,
              double alignment = 0);

} // namespace sim::window
