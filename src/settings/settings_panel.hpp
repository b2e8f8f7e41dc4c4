#pragma once
// The settings panel: a card on the overlay window that edits every preference a user may see.

namespace corvel {

/// Builds the panel from the stored preferences in the middle of the screen and shows it with a spring. A panel that
/// stands already (fading out, perhaps) gives way. Nothing without an overlay window. Main thread.
void BuildSettingsPanel();

/// Builds an existing panel anew at its place, at once and in full size. Nothing without a panel. Main thread.
void RebuildSettingsPanel();

} // namespace corvel
