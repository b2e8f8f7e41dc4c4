#pragma once
// The rows of the settings panel: what a row is, and the builders of each kind.

#include "settings/settings_views.hpp"

namespace corvel {

/// On every control of a row: the preference key that it edits.
inline constexpr objc::AssociationKey kRowPreferenceKey{"cfg_key"};

/// One row as data. A new row is one line in a table of these.
struct SettingsRow {
    /// Adds the row's views to the container at y, in points, and moves y below them.
    void (*add)(ui::View container, double &y, const SettingsRow &row);
    ns::String title;
    ns::String key;
    /// The range of a slider.
    double minimum = 0;
    double maximum = 0;
};

/// A title and a switch that shows and stores a bool.
void AddSwitchRow(ui::View container, double &y, const SettingsRow &row);
/// A title and below it a slider that shows and stores a float.
void AddSliderRow(ui::View container, double &y, const SettingsRow &row);
/// A title and a button in the stored colour that opens the colour picker.
void AddColorRow(ui::View container, double &y, const SettingsRow &row);

/// Adds the rows of a table in order.
template <std::size_t N> void AddRows(ui::View container, double &y, const SettingsRow (&rows)[N]) {
    for (const SettingsRow &row : rows) {
        row.add(container, y, row);
    }
}

/// A wide button that runs a handler. Leaves the vertical steps to the caller.
ui::Button AddActionButton(ui::View container, double y, ns::String title, ui::Color background, objc::SEL action);

} // namespace corvel
