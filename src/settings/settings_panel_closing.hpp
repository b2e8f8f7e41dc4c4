#pragma once
// Closing the settings panel.

namespace corvel {

/// Fades and shrinks the settings panel out over 0.2 s, then removes it. Nothing without a panel. Main thread.
void CloseSettingsPanel();

} // namespace corvel
