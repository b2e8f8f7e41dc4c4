#pragma once
// The whole screen as a picture.

#include "uikit/view_renderer.hpp"

#include <string>

struct _cairo;

namespace sim {

/// Draws the screen, black with all visible windows back to front and the status bar above them, into a context whose
/// user space is in points and whose target is an image surface. Backdrops may be kept for the next drawing of it.
void DrawScreen(_cairo *context, Backdrops *kept = nullptr);

/// Draws the visible windows back to front, as far as the renderer draws them.
void DrawWindows(ViewRenderer &renderer);

/// Writes what the screen shows as a PNG file of `scale` pixels a point; false when the file cannot be written.
bool WriteScreenshot(const std::string &path, double scale = 2);

} // namespace sim
