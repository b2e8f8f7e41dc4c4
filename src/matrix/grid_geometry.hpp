#pragma once
// The arithmetic of the grid: how many cells, how large, where. Lengths are points.

#include "apple/coregraphics/geometry.hpp"

#include <array>
#include <cstdint>

namespace corvel {

struct GridSize {
    std::int32_t columns;
    std::int32_t rows;
    friend constexpr bool operator==(GridSize, GridSize) = default;

    constexpr std::int32_t count() const {
        return columns * rows;
    }
};

/// By preset index; the settings panel labels them 4, 12, 16, 20, 25, 36, 42 and 48.
inline constexpr std::array<GridSize, 8> kGridPresets{{{2, 2}, {4, 3}, {4, 4}, {5, 4}, {5, 5}, {6, 6}, {6, 7}, {6, 8}}};

/// What an unset number of the custom grid counts as: 4 x 4, not 1 x 1.
inline constexpr std::int32_t kUnsetCustomNumber = 4;

/// The grid that the preferences ask for: a preset index of 0 to 7 selects a preset, any other the custom numbers, of
/// which each below 1 counts as 4 and each above 12 as 12. Only the lower 32 bits of every stored number count.
GridSize StoredGridSize();

/// The lengths of a grid at a scale.
class GridGeometry {
  public:
    GridGeometry(GridSize grid, double scale);

    cg::Size panelSize() const {
        return panelSize_;
    }
    cg::Size cellSize() const {
        return cellSize_;
    }
    /// The gap between cells and at the edges.
    double spacing() const {
        return spacing_;
    }
    /// The frame of the cell with that index, counted from 0 at the top left, row by row.
    cg::Rect CellFrame(std::int32_t index) const;
    /// The frame of the panel's title.
    cg::Rect TitleFrame() const;
    /// The frame of the shortened-title marker within a cell.
    cg::Rect MarkerFrame() const;
    /// The room for a cell's title: wrapping width and largest height. Negative in the smallest cells.
    cg::Size TitleBox() const;

  private:
    std::int32_t columns_;
    double spacing_;
    cg::Size cellSize_;
    cg::Size panelSize_;
};

} // namespace corvel
