#include "matrix/grid_geometry.hpp"

#include "preferences/preferences.hpp"

namespace corvel {
namespace {

constexpr double kPanelWidth = 310;
constexpr double kSpacing = 6;
/// Not scaled with the rest.
constexpr double kHeaderHeight = 35;

std::int32_t ReadCustom(const IntegerPreference &preference) {
    const auto number = static_cast<std::int32_t>(preference.Read());
    return number < preference.least() ? kUnsetCustomNumber : static_cast<std::int32_t>(preference.Clamped(number));
}

} // namespace

GridSize StoredGridSize() {
    const auto index = static_cast<std::int32_t>(kGridPresetIndex.Read());
    if (index >= 0 && index < static_cast<std::int32_t>(kGridPresets.size())) {
        return kGridPresets[static_cast<std::size_t>(index)];
    }
    return {ReadCustom(kGridCustomColumns), ReadCustom(kGridCustomRows)};
}

GridGeometry::GridGeometry(GridSize grid, double scale) : columns_(grid.columns), spacing_(kSpacing * scale) {
    panelSize_.width = kPanelWidth * scale;
    cellSize_.width = (panelSize_.width - (grid.columns + 1) * spacing_) / grid.columns;
    cellSize_.height = 0.8 * cellSize_.width;
    panelSize_.height = kHeaderHeight + grid.rows * cellSize_.height + (grid.rows + 1) * spacing_;
}

cg::Rect GridGeometry::CellFrame(std::int32_t index) const {
    const std::int32_t row = index / columns_;
    const std::int32_t column = index - row * columns_;
    return {{spacing_ + (spacing_ + cellSize_.width) * column,
             spacing_ + kHeaderHeight + (spacing_ + cellSize_.height) * row},
            cellSize_};
}

cg::Rect GridGeometry::TitleFrame() const {
    return {{0, 8}, {panelSize_.width, 20}};
}

cg::Rect GridGeometry::MarkerFrame() const {
    return {{cellSize_.width - 8, 2}, {6, 6}};
}

cg::Size GridGeometry::TitleBox() const {
    return {cellSize_.width - 4, cellSize_.height - 4};
}

} // namespace corvel
