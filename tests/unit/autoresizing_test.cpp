// How subviews follow the size of what they lie in.

#include "uikit/autoresizing.hpp"

#include <gtest/gtest.h>

namespace {

constexpr cg::Size kBefore{100, 200};
constexpr cg::Size kAfter{200, 300};

cg::Rect Follow(cg::Rect frame, unsigned long mask) {
    return sim::Autoresized(frame, kBefore, kAfter, mask);
}

} // namespace

TEST(Autoresizing, OneFlexibleLengthTakesTheWholeChange) {
    const cg::Rect frame{{10, 20}, {30, 40}};
    EXPECT_EQ(Follow(frame, 0), frame);
    EXPECT_EQ(Follow(frame, UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight),
              (cg::Rect{{10, 20}, {130, 140}}));
    EXPECT_EQ(Follow(frame, UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleTopMargin),
              (cg::Rect{{110, 120}, {30, 40}}));
    EXPECT_EQ(Follow(frame, UIViewAutoresizingFlexibleRightMargin | UIViewAutoresizingFlexibleBottomMargin), frame);
}

TEST(Autoresizing, SeveralShareTheChangeByTheirLengths) {
    const cg::Rect middle{{35, 80}, {30, 40}};
    EXPECT_EQ(Follow(middle, UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin |
                                 UIViewAutoresizingFlexibleTopMargin | UIViewAutoresizingFlexibleBottomMargin),
              (cg::Rect{{85, 130}, {30, 40}}));
    const cg::Rect left{{10, 0}, {40, 200}};
    EXPECT_EQ(Follow(left, UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleWidth),
              (cg::Rect{{30, 0}, {120, 200}}));
    EXPECT_EQ(Follow({{0, 0}, {0, 200}}, UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleWidth),
              (cg::Rect{{50, 0}, {50, 200}}));
}
