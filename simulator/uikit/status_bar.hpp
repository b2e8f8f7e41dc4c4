#pragma once
// The status bar: time, signal and battery, in the colour that the top-most controller wants.

struct _cairo;

namespace sim {

/// UIStatusBarStyle. The default has light content in the dark appearance and dark content in the light one.
enum class StatusBarStyle : long { kDefault = 0, kLightContent = 1, kDarkContent = 3 };

enum class StatusBar { kHidden, kLight, kDark };

/// What the status bar looks like now. In landscape a phone has none.
StatusBar PresentStatusBar();

/// Draws it over everything else; user space is in points.
void DrawStatusBar(_cairo *context);

} // namespace sim
