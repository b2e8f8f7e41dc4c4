#pragma once
// What stands for moving pictures: the video of a live room, and the poster of one in the lobby.

#include "apple/uikit/view.hpp"

namespace sim::hosts {

struct VideoView : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "SimLiveVideoView";
};

struct PosterView : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "SimLivePosterView";
};

/// Registers the classes and their drawing. After UIKit's.
void RegisterVideoViews();

} // namespace sim::hosts
