#pragma once
// Core Graphics structures. All lengths are points.

#include "objc/encoding.hpp"

namespace cg {

struct Point {
    double x = 0;
    double y = 0;
    friend constexpr bool operator==(Point, Point) = default;
};

struct Size {
    double width = 0;
    double height = 0;
    friend constexpr bool operator==(Size, Size) = default;
};

struct Rect {
    Point origin;
    Size size;
    friend constexpr bool operator==(Rect, Rect) = default;
};

/// The matrix [a b 0; c d 0; tx ty 1] applied to row vectors.
struct AffineTransform {
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 1;
    double tx = 0;
    double ty = 0;
    friend constexpr bool operator==(AffineTransform, AffineTransform) = default;

    static constexpr AffineTransform Identity() {
        return {};
    }
    static constexpr AffineTransform Scale(double sx, double sy) {
        return {sx, 0, 0, sy, 0, 0};
    }
};

} // namespace cg

namespace objc {
template <> struct Encode<cg::Point> {
    static constexpr FixedString value{"{CGPoint=dd}"};
};
template <> struct Encode<cg::Size> {
    static constexpr FixedString value{"{CGSize=dd}"};
};
template <> struct Encode<cg::Rect> {
    static constexpr FixedString value{"{CGRect={CGPoint=dd}{CGSize=dd}}"};
};
template <> struct Encode<cg::AffineTransform> {
    static constexpr FixedString value{"{CGAffineTransform=dddddd}"};
};
} // namespace objc
