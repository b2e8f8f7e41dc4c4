#pragma once
// Reading a colour's red, green and blue.

#include "apple/foundation/string.hpp"
#include "apple/uikit/color.hpp"

namespace corvel {

/// The colour as #RRGGBB in upper case, its alpha left out. What has no red, green and blue to read (nil, a pattern)
/// gives "#FFFFFF"; components outside 0 to 1, as wide gamuts have, count as the nearer end.
objc::Ref<ns::String> HexText(ui::Color color);

/// Whether dark text reads better on the colour than bright text.
bool IsBright(ui::Color color);

} // namespace corvel
