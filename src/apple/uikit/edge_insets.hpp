#pragma once
// UIEdgeInsets.

#include "objc/encoding.hpp"

namespace ui {

/// Distances in points from the four edges inwards.
struct EdgeInsets {
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;
    friend constexpr bool operator==(EdgeInsets, EdgeInsets) = default;
};

} // namespace ui

namespace objc {
template <> struct Encode<ui::EdgeInsets> {
    static constexpr FixedString value{"{UIEdgeInsets=dddd}"};
};
} // namespace objc
