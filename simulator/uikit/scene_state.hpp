#pragma once
// What scenes and windows keep, for the files that make up the application.

#include "apple/uikit/window.hpp"

#include <vector>

namespace sim {

struct SceneState {
    UISceneActivationState activationState = UISceneActivationStateUnattached;
    ui::Window keyWindow; // not owned
};

struct WindowState {
    double level = 0;
    ui::WindowScene scene;     // not owned
    bool lostItsScene = false; // it had one, which was disconnected or taken away, and is not on the screen
    long shownOrder = 0;       // grows each time a window is made visible; 0 before the first
    objc::Ref<ui::ViewController> root;
    bool rootIsShown = false; // its view is in the window, and told so
};

SceneState &SceneStateOf(ui::Scene scene);
WindowState &WindowStateOf(ui::Window window);

/// Every window alive, in order of making; not owned.
std::vector<ui::Window> &AllWindows();

/// The key window of the whole application: the one that became key last.
ui::Window ApplicationKeyWindow();

/// Makes the window its scene's (and the application's) key window; nil takes the status from the scene's present one.
/// A window that cannot become key leaves everything as it is.
void SetKeyWindow(ui::WindowScene scene, ui::Window window);

/// Makes the window key; nil does nothing.
void MakeKey(ui::Window window);

/// Whether the window is to be seen: not hidden, and not left behind by a scene that was disconnected.
bool IsOnScreen(ui::Window window);

} // namespace sim
