#pragma once
// What stands in the settings panel, block by block; the rows themselves are in settings_table.hpp.
// Each function adds its views to the container and gives their height in points.

#include "apple/uikit/view.hpp"

namespace corvel {

/// The rows that are always shown.
double AddFixedRows(ui::View container);

/// Exporting, importing and resetting the configuration, and the debug log while its features are on.
double AddConfigurationButtons(ui::View container);

/// Douyin's latency options.
double AddLatencyRows(ui::View container);

/// The footer: the version.
double AddFooter(ui::View container);

} // namespace corvel
