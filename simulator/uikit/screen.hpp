#pragma once
// UIScreen: the one main screen, and which way up its interface stands.

#include "apple/uikit/window.hpp"
#include "uikit/screen_model.hpp"

namespace sim {

/// Which way up the interface stands, numbered as UIInterfaceOrientation is. A phone held the same way has the same
/// number as its UIDeviceOrientation. "Left" and "right" tell where the home button is, or would be: in landscape left
/// the top of the phone points to the right.
enum class Orientation : long { kPortrait = 1, kUpsideDown = 2, kLandscapeRight = 3, kLandscapeLeft = 4 };

/// The main screen, which serves as coordinate space too.
ui::Screen MainScreen();

/// Sets what kind of screen the phone has. Windows do not follow by themselves, here and below.
void SetScreen(const ScreenModel &model);

/// Which way up the interface stands now; portrait at first.
Orientation InterfaceOrientation();
void SetInterfaceOrientation(Orientation orientation);
bool IsLandscape();

/// What is to be kept free at the screen's edges, as the interface stands now.
ui::EdgeInsets ScreenSafeArea();

/// How high a keyboard's keys are, as the interface stands now.
KeyHeights ScreenKeyHeights();

} // namespace sim
