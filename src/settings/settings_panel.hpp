#pragma once
// The settings panel: a card on the overlay window that edits every preference a user may see.

namespace corvel {

/// Builds the panel from the stored preferences and shows it: with a spring, or at once and at the kept frame while it
/// is being rebuilt. A panel that stands already (fading out, perhaps) gives way. Nothing without an overlay window.
/// Main thread.
void BuildSettingsPanel();

/// Builds an existing panel anew at its place, without animation. Nothing without a panel. Main thread.
void RebuildSettingsPanel();

} // namespace corvel
