// What UIKit adds to NSString: measuring.

#include "apple/uikit/text_measuring.hpp"
#include "render/text_layout.hpp"
#include "runtime/native_class.hpp"
#include "runtime/utf16.hpp"
#include "uikit/classes.hpp"
#include "uikit/font.hpp"

#include <algorithm>
#include <cmath>

namespace sim {
namespace {

constexpr double kDefaultPointSize = 12; // of text without a font attribute; a label's differs

FontFace FaceIn(ns::Dictionary attributes) {
    const auto font = objc::As<ui::Font>(attributes.objectForKey(NSFontAttributeName));
    return font ? FaceOf(font) : FontFace{kDefaultPointSize, false};
}

cg::Rect BoundingRect(ns::String self, cg::Size size, NSStringDrawingOptions options, ns::Dictionary attributes,
                      ns::Object) {
    const FontFace face = FaceIn(attributes);
    const double lineHeight = MetricsOf(face).lineHeight;
    const std::u16string text = UnitsOf(self);
    if ((options & NSStringDrawingUsesLineFragmentOrigin) == 0) { // one line, whatever the text holds and the size says
        const TextExtent extent = MeasureText(text, {face, Wrapping::kNone, 0}, 1);
        return {{}, {extent.width, lineHeight}};
    }
    const TextExtent extent = MeasureText(text, {face, Wrapping::kWord, size.width});
    auto lines = static_cast<double>(extent.lines);
    // Lines beyond the height are left out. A height that is not above zero is no limit.
    if (size.height > 0) {
        lines = std::clamp(std::floor(size.height / lineHeight), 1.0, lines);
    }
    return {{}, {extent.width, lines * lineHeight}};
}

cg::Size SizeWithAttributes(ns::String self, ns::Dictionary attributes) {
    const FontFace face = FaceIn(attributes);
    const TextExtent extent = MeasureText(UnitsOf(self), {face, Wrapping::kNone, 0});
    return {extent.width, static_cast<double>(extent.lines) * MetricsOf(face).lineHeight};
}

} // namespace

void DefineTextMeasuring() {
    auto string = Class<>::Existing("NSString");
    string.Method<"boundingRectWithSize:options:attributes:context:", &BoundingRect>();
    string.Method<"sizeWithAttributes:", &SizeWithAttributes>();
}

} // namespace sim
