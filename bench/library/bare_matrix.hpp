#pragma once
// The matrix made by bare calls: the views that must stand and what must be set on them, and nothing beside. The floor
// that the library's own way is measured against. The calls stand here once more, for a floor that the library made
// would move with it.

#include "apple/uikit/button.hpp"
#include "apple/uikit/effects.hpp"
#include "matrix/grid_geometry.hpp"

#include <vector>

namespace bench {

/// The panel's title has this tag.
inline constexpr long kTitleTag = 999;

/// What a grid shows, known beforehand.
struct MatrixModel {
    explicit MatrixModel(int columns, int rows, unsigned long units, double scale = 1);

    corvel::GridSize grid;
    double scale;
    corvel::GridGeometry geometry;
    std::vector<objc::Ref<ns::String>> texts;
    std::vector<objc::Ref<ns::String>> titles; ///< as far as they fit
};

/// The panel's frame, the look of its title and of what lies around the cells.
void SetBarePanel(ui::View panel, ui::View content, ui::Label title, const MatrixModel &model);

/// Makes all cells in the container, with one measurement each.
std::vector<ui::Button> AddBareCells(ui::View container, const MatrixModel &model);

/// Sets again what a layout sets on cells whose texts stay.
void SetBareCells(const std::vector<ui::Button> &cells, const MatrixModel &model);

/// Makes the panel with all cells in the overlay window and springs it in.
objc::Ref<ui::VisualEffectView> OpenBareMatrix(const MatrixModel &model);

} // namespace bench
