#pragma once
// What stands for moving pictures: the video of a live room, and the poster of one in the lobby.

#include "apple/uikit/view.hpp"

namespace sim::hosts {

inline constexpr const char *kVideoClass = "SimLiveVideoView";

/// Registers the classes and their drawing. After UIKit's.
void RegisterVideoViews();

/// Adds a poster with round corners.
ui::View AddPoster(ui::View parent, cg::Rect frame);

} // namespace sim::hosts
