#include "matrix/keyboard_avoidance.hpp"

#include "apple/foundation/number.hpp"
#include "apple/uikit/keyboard.hpp"
#include "apple/uikit/window.hpp"
#include "matrix/slot_editor_views.hpp"
#include "objc/guard.hpp"

#include <algorithm>

namespace corvel {
namespace {

constexpr double kGapAboveKeyboard = 10; // points
constexpr double kLeastTop = 20;         // points

double ScreenHeight() {
    return ui::Screen::mainScreen().bounds().size.height;
}

void MoveAbove(ui::View box, double keyboardHeight) {
    const cg::Rect frame = box.frame();
    const double half = frame.size.height * 0.5;
    const double limit = ScreenHeight() - keyboardHeight - kGapAboveKeyboard;
    const double centerY = std::min(box.center().y, limit - half);
    box.setFrame({{frame.origin.x, std::max(centerY - half, kLeastTop)}, frame.size});
}

void MoveBack(const objc::Ref<ui::View> &box, double duration) {
    ui::View::animateWithDuration(
        duration, objc::MakeBlock<void()>([=] { box->setCenter({box->center().x, ScreenHeight() * 0.5}); }));
}

/// The editor's controller: what answers next behind the view that the box is in.
ui::ViewController ControllerOf(ui::View box) {
    return objc::As<ui::ViewController>(box.superview().nextResponder());
}

/// Anybody may post such a notification, with anything or nothing in it.
template <class React> ns::Object Observe(ns::String name, ui::View box, React react) {
    const auto observer = [weakBox = objc::WeakRef<ui::View>(box), react](ns::Notification notification) {
        const objc::Ref<ui::View> present = weakBox.Lock();
        if (present) {
            objc::Guard([&] { react(present, notification.userInfo()); });
            UntieIfGone(ControllerOf(present)); // the app may have taken it away: nothing else tells
        }
    };
    return ns::NotificationCenter::defaultCenter().addObserverForName(
        name, nullptr, ns::OperationQueue::mainQueue(), objc::MakeBlock<void(ns::Notification)>(observer));
}

} // namespace

KeyboardObservers AvoidKeyboard(ui::View box) {
    const auto show = [](const objc::Ref<ui::View> &present, ns::Dictionary info) {
        const auto frame = objc::As<ui::Value>(info.objectForKey(UIKeyboardFrameEndUserInfoKey));
        MoveAbove(present, frame.CGRectValue().size.height);
    };
    const auto hide = [](const objc::Ref<ui::View> &present, ns::Dictionary info) {
        const auto duration = objc::As<ns::Number>(info.objectForKey(UIKeyboardAnimationDurationUserInfoKey));
        MoveBack(present, duration.doubleValue());
    };
    return {Observe(UIKeyboardWillShowNotification, box, show), Observe(UIKeyboardWillHideNotification, box, hide)};
}

} // namespace corvel
