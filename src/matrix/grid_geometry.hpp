#pragma once
// The arithmetic of the grid: how many cells, how large, where. Lengths are points.

#include "apple/coregraphics/geometry.hpp"

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
