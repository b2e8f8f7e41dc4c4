#pragma once
// UIKit's string measuring.

#include "apple/coregraphics/geometry.hpp"
#include "apple/foundation/collections.hpp"
#include "apple/foundation/string.hpp"

namespace ui {

/// NSStringDrawingUsesLineFragmentOrigin: lay the text out in lines, as a label does.
inline constexpr long kUsesLineFragmentOrigin = 1 << 0;
/// NSStringDrawingUsesFontLeading: count the font's leading between lines.
inline constexpr long kUsesFontLeading = 1 << 1;

/// The rectangle (points) that the text fills when wrapped to the size; attributes as in NSAttributedString.
inline cg::Rect BoundingRect(ns::String text, cg::Size size, long options, ns::Dictionary attributes) {
    return objc::Send<"boundingRectWithSize:options:attributes:context:", cg::Rect>(text, size, options, attributes,
                                                                                    ns::Object{});
}

} // namespace ui
