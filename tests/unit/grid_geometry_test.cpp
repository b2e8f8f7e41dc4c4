// The arithmetic of the grid.

#include "matrix/grid_geometry.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace corvel {
namespace {

TEST(GridGeometry, FreshInstall) {
    const GridGeometry geometry({2, 2}, 1.0);
    EXPECT_DOUBLE_EQ(geometry.panelSize().width, 310);
    EXPECT_DOUBLE_EQ(geometry.panelSize().height, 286.6);
    EXPECT_DOUBLE_EQ(geometry.spacing(), 6);
    EXPECT_DOUBLE_EQ(geometry.cellSize().width, 146);
    EXPECT_DOUBLE_EQ(geometry.cellSize().height, 116.8);
    EXPECT_EQ(geometry.TitleFrame(), (cg::Rect{{0, 8}, {310, 20}}));
    EXPECT_EQ(geometry.MarkerFrame(), (cg::Rect{{138, 2}, {6, 6}}));
    EXPECT_DOUBLE_EQ(geometry.TitleBox().width, 142);
    EXPECT_DOUBLE_EQ(geometry.TitleBox().height, 112.8);
}

TEST(GridGeometry, CellsFillRowByRow) {
    const GridGeometry geometry({4, 3}, 1.0); // w = 70, h = 56
    const auto origin = [&](int index) { return geometry.CellFrame(index).origin; };
    EXPECT_DOUBLE_EQ(geometry.cellSize().width, 70);
    EXPECT_DOUBLE_EQ(geometry.cellSize().height, 56);
    EXPECT_EQ(origin(0), (cg::Point{6, 41}));
    EXPECT_EQ(origin(3), (cg::Point{6 + 76 * 3, 41}));
    EXPECT_EQ(origin(4), (cg::Point{6, 41 + 62}));
    EXPECT_EQ(origin(11), (cg::Point{6 + 76 * 3, 41 + 62 * 2}));
    EXPECT_EQ(geometry.CellFrame(11).size, geometry.cellSize());
    EXPECT_DOUBLE_EQ(geometry.panelSize().height, 35 + 3 * 56 + 4 * 6);
}

TEST(GridGeometry, TheHeaderDoesNotScale) {
    const GridGeometry geometry({2, 2}, 0.5);
    EXPECT_DOUBLE_EQ(geometry.panelSize().width, 155);
    EXPECT_DOUBLE_EQ(geometry.spacing(), 3);
    EXPECT_DOUBLE_EQ(geometry.cellSize().width, 73);
    EXPECT_DOUBLE_EQ(geometry.cellSize().height, 58.4);
    EXPECT_DOUBLE_EQ(geometry.panelSize().height, 35 + 2 * 58.4 + 9);
    EXPECT_EQ(geometry.CellFrame(0).origin, (cg::Point{3, 38}));
    EXPECT_EQ(geometry.TitleFrame(), (cg::Rect{{0, 8}, {155, 20}}));
}

TEST(GridGeometry, AnyStoredScaleGivesNumbers) {
    constexpr double kLargest = std::numeric_limits<float>::max();
    for (const double scale : {0.0, -0.0, -1.0, 1e-45, kLargest, -kLargest}) {
        for (const GridSize size : {GridSize{1, 12}, GridSize{12, 1}, GridSize{12, 12}}) {
            const GridGeometry geometry(size, scale);
            for (int index = 0; index < size.count(); ++index) {
                const cg::Rect frame = geometry.CellFrame(index);
                EXPECT_TRUE(std::isfinite(frame.origin.x) && std::isfinite(frame.origin.y));
                EXPECT_TRUE(std::isfinite(frame.size.width) && std::isfinite(frame.size.height));
            }
            EXPECT_TRUE(std::isfinite(geometry.panelSize().width) && std::isfinite(geometry.panelSize().height));
            EXPECT_TRUE(std::isfinite(geometry.TitleBox().width) && std::isfinite(geometry.TitleBox().height));
        }
    }
    EXPECT_DOUBLE_EQ(GridGeometry({2, 2}, 0).TitleBox().width, -4);
}

} // namespace
} // namespace corvel
