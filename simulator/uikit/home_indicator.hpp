#pragma once
// The bar at the bottom of a phone without a home button.

struct _cairo;

namespace sim {

/// Draws the bar above everything on the screen: light over what is dark, dark over what is light. The context's target
/// is an image surface that the rest of the screen has been drawn to, its user space is in points. Nothing on a phone
/// with a home button.
void DrawHomeIndicator(_cairo *context);

} // namespace sim
