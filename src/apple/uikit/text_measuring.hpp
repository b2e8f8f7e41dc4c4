#pragma once
// UIKit's string measuring.

#include "apple/coregraphics/geometry.hpp"
#include "apple/foundation/collections.hpp"
#include "apple/foundation/string.hpp"

using NSStringDrawingOptions = long;
enum : NSStringDrawingOptions {
    NSStringDrawingUsesLineFragmentOrigin = 1 << 0, // lays the text out in lines, as a label does
    NSStringDrawingUsesFontLeading = 1 << 1,        // counts the font's leading between lines
};

namespace ui {

/// The rectangle (points) that the text fills when wrapped to the size; attributes as in NSAttributedString.
inline cg::Rect BoundingRect(ns::String text, cg::Size size, NSStringDrawingOptions options,
                             ns::Dictionary attributes) {
    return objc::Send<"boundingRectWithSize:options:attributes:context:", cg::Rect>(text, size, options, attributes,
                                                                                    ns::Object{});
}

} // namespace ui
