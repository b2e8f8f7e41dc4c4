#include "overlay/float_place.hpp"

#include "apple/foundation/notifications.hpp"
#include "overlay/capture_button.hpp"
#include "overlay/round_button.hpp"
#include "overlay/state.hpp"

#include <algorithm>
#include <utility>

namespace corvel {
namespace {

struct FloatPlace {
    cg::Point center;  // where the user wants the float button,
    cg::Size space;    // in a window of this size
    cg::Size followed; // the size for which the buttons stand where they are
};

constinit FloatPlace place;

} // namespace

cg::Point WithinSpace(cg::Point center, cg::Size space) {
    constexpr double kRadius = kRoundButtonDiameter / 2;
    return {std::max(kRadius, std::min(center.x, space.width - kRadius)),
            std::max(kRadius, std::min(center.y, space.height - kRadius))};
}

void KeepFloatPlace() {
    const cg::Size space = Overlay().window->bounds().size;
    place = {.center = Overlay().floatButton->center(), .space = space, .followed = space};
}

void FollowBounds() {
    const cg::Size space = Overlay().window->bounds().size;
    if (!Overlay().floatButton || std::exchange(place.followed, space) == space) {
        return;
    }
    cg::Size room = space;
    if (Overlay().captureButton) {
        room.height -= CaptureButtonCenter({}).y; // the one below is to be within reach too
    }
    const cg::Point center = space == place.space ? place.center : WithinSpace(place.center, room);
    Overlay().floatButton->setCenter(center);
    Overlay().captureButton->setCenter(CaptureButtonCenter(center));
}

void ObserveRotation() {
    static constinit bool observed = false;
    if (!std::exchange(observed, true)) {
        // Deprecated since iOS 13. Its text stands here instead of UIKit's constant, without which a later iOS would
        // not load the library at all.
        ns::NotificationCenter::defaultCenter().addObserverForName(
            "UIApplicationDidChangeStatusBarOrientationNotification"_ns, nullptr, ns::OperationQueue::mainQueue(),
            objc::MakeBlock<void(ns::Notification)>([](ns::Notification) { FollowBounds(); }));
    }
}

} // namespace corvel
