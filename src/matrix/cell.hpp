#pragma once
// One cell of the matrix: a button that shows a slot's text as far as it fits.

#include "apple/uikit/button.hpp"
#include "matrix/grid_geometry.hpp"

namespace corvel {

/// A cell's tag is this plus its index.
inline constexpr long kCellTagBase = 1000;

/// On a cell: the whole display text, of which the title may be a prefix only.
inline constexpr objc::AssociationKey kFullText{"full_text"};

/// What all cells have in common in one layout pass.
class CellStyle {
  public:
    /// Of no layout yet.
    constexpr CellStyle() = default;
    /// Reads the cell colours and the font size; the scale multiplies the latter.
    explicit CellStyle(double scale);

    ui::Color background() const {
        return background_;
    }
    ui::Color titleColor() const {
        return titleColor_;
    }
    ui::Font titleFont() const {
        return titleFont_;
    }
    /// The title font as text measuring wants it.
    ns::Dictionary attributes() const {
        return attributes_;
    }
    /// Whether cells look the same in both.
    friend bool operator==(const CellStyle &one, const CellStyle &other);

  private:
    objc::Ref<ui::Color> background_;
    objc::Ref<ui::Color> titleColor_;
    objc::Ref<ui::Font> titleFont_;
    objc::Ref<ns::Dictionary> attributes_;
};

/// Adds a new, empty cell for the slot of that index to the container and returns it.
ui::Button AddCell(ui::View container, int index);

/// Shows a cell of the grid with its slot's present text: frame, look, title, full text, marker. `restyled` says that
/// the geometry or the style may be another than when the cell was last updated; otherwise only another text counts.
void UpdateCell(ui::Button cell, int index, const GridGeometry &geometry, const CellStyle &style, bool restyled);

} // namespace corvel
