#pragma once
// The application's scenes, windows and screen, for hosts, the driver and the renderer.

#include "apple/uikit/window.hpp"

#include <vector>

namespace sim {

/// The main screen's size in points, as the interface stands now; 390 x 844 unless set (uikit/screen.hpp).
cg::Size ScreenSize();

/// Pixels a point; 3 unless set.
double ScreenScale();

/// Connects a new window scene to the application, which keeps it.
ui::WindowScene MakeWindowScene(UISceneActivationState activationState);

/// Sets a scene's activation state.
void SetActivationState(ui::Scene scene, UISceneActivationState activationState);

/// Takes a scene from the application; its windows stay, belonging to no scene.
void DisconnectScene(ui::Scene scene);

/// The connected scenes in the order in which connectedScenes enumerates them: that of their connection.
std::vector<ui::WindowScene> ConnectedScenes();

/// The windows attached to a scene, hidden ones too, back to front; nil stands for every window.
std::vector<ui::Window> WindowsOf(ui::WindowScene scene);

/// The scene's key window; nil when it has none.
ui::Window KeyWindowOf(ui::WindowScene scene);

/// All visible windows: higher levels first, within a level the latest made visible first.
std::vector<ui::Window> WindowsFrontToBack();

/// The view that a finger landing at the point (screen coordinates) would touch; nil when no window takes it.
ui::View HitTestScreen(cg::Point point);

/// Lays out every view in a window that asked for it, as the end of a run-loop turn does.
void LayoutWindows();

} // namespace sim
