#pragma once
// Building the rows of the settings panel, and what their plain controls do. Main thread only.

#include "apple/uikit/slider.hpp"
#include "apple/uikit/switch.hpp"
#include "settings/settings_table.hpp"
#include "settings/settings_views.hpp"

namespace corvel {

/// On every control of a row: the key of the preference that it edits.
inline constexpr objc::AssociationKey kRowPreferenceKey{"cfg_key"};

// Each adds a row's views to the column and moves its y below them.

/// A title and a switch that shows and stores a bool.
void AddRow(Column &column, const SwitchRow &row);
/// A title and below it a slider that shows and stores a float.
void AddRow(Column &column, const SliderRow &row);
/// A title and a button in the stored colour that opens the colour picker.
void AddRow(Column &column, const ColorRow &row);

/// Adds the rows of a table in order.
template <class Row, std::size_t N> void AddRows(Column &column, const Row (&rows)[N]) {
    for (const Row &row : rows) {
        AddRow(column, row);
    }
}

/// The row of the table whose preference has the key; null when there is none.
template <class Row, std::size_t N> const Row *RowWithKey(const Row (&rows)[N], ns::String key) {
    for (const Row &row : rows) {
        if (row.preference.Is(key)) {
            return &row;
        }
    }
    return nullptr;
}

/// The row of the table whose preference the control edits; null when it has none there.
template <class Row, std::size_t N> const Row *RowOf(const Row (&rows)[N], ns::Object control) {
    return RowWithKey(rows, objc::GetAssociated<ns::String>(control, kRowPreferenceKey));
}

/// `dm_sw:`: stores the switch's bool and refreshes what depends on it.
void HandleSwitchChange(objc::Class, objc::SEL, ui::Switch control);

/// `dm_sl:`: stores the slider's number, at each step of a drag, and rebuilds the matrix.
void HandleSliderChange(objc::Class, objc::SEL, ui::Slider slider);

} // namespace corvel
