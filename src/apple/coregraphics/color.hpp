#pragma once
// CGColor: what a UIColor hands to a layer, and whose components can be read.

#include "objc/encoding.hpp"

extern "C" struct CGColor;

namespace objc {
template <> struct Encode<CGColor> {
    static constexpr FixedString value{"{CGColor}"};
};
} // namespace objc

extern "C" {
/// How many components a colour has, alpha included: 2 for greys, 4 for red, green and blue; 0 for null.
unsigned long CGColorGetNumberOfComponents(CGColor *color);
/// The components from 0 to 1, alpha last, not premultiplied; they live as long as the colour. Null for null.
const double *CGColorGetComponents(CGColor *color);
}
