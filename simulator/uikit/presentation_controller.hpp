#pragma once
// UIPresentationController, and the swipe that takes a sheet away.

#include "apple/uikit/view_controller.hpp"

namespace sim {

struct PresentationController : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIPresentationController";
};

/// A new one for a view controller, which is to own it.
objc::Ref<PresentationController> MakePresentationController(ui::ViewController presented);

/// From now on a drag on the view that it presents can take that view away.
void WatchForSwipes(PresentationController controller);

/// The view is gone: no drag on it counts any more.
void ForgetSwipes(PresentationController controller);

} // namespace sim
