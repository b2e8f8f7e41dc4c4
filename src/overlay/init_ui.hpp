#pragma once
// Building the overlay, and taking it down.

extern "C" {
/// Builds the overlay once; a call while it stands returns at once, and one that finds no active scene builds nothing.
/// In WeChat, while the plugin switch is on, takes the whole overlay down instead. Main thread only.
__attribute__((visibility("default"))) void InitUI();
}
