#include "overlay/float_drag.hpp"

#include "overlay/capture_button.hpp"
#include "overlay/float_place.hpp"
#include "overlay/recognizers.hpp"
#include "overlay/state.hpp"
#include "preferences/preferences.hpp"

namespace corvel {
namespace {

constexpr double kDockInset = 30; // points from the side edge

void StorePosition(cg::Point center) {
    kFloatButtonX.Store(center.x);
    kFloatButtonY.Store(center.y);
    SynchronizeDefaults();
}

/// Springs the pair to the side edge at x and stores the place it comes to.
void Dock(double x) {
    // The blocks hold the buttons: a teardown may come before the spring is at rest.
    const objc::Ref<ui::Button> floatButton = Overlay().floatButton;
    const objc::Ref<ui::Button> captureButton = Overlay().captureButton;
    ui::View::animateWithDuration(
        0.3, 0, 0.6, 0.5, 0, objc::MakeBlock<void()>([=] {
            const cg::Point center{x, floatButton->center().y};
            floatButton->setCenter(center);
            captureButton->setCenter(CaptureButtonCenter(center));
        }),
        objc::MakeBlock<void(bool)>([=](bool) { StorePosition({x, floatButton->center().y}); }));
}

void FinishDrag(ui::Button button) {
    const cg::Size screen = ui::Screen::mainScreen().bounds().size;
    const cg::Point center = WithinSpace(button.center(), screen);
    // The capture button stays where it is: docking or the next drag aligns it again.
    button.setCenter(center);
    if (kFloatAutoSnap.Read()) {
        Dock(center.x < screen.width * 0.5 ? kDockInset : screen.width - kDockInset);
    } else {
        StorePosition(center);
    }
    KeepFloatPlace();
}

} // namespace

void AddDragRecognizer(ui::View button) {
    AddRecognizer<ui::PanGestureRecognizer>(button, objc::Selector<"dm_panF:">());
}

void HandleFloatDrag(objc::Class, objc::SEL, ui::PanGestureRecognizer recognizer) {
    const ui::Button button = Overlay().floatButton;
    if (!button) {
        return; // taken down under the finger
    }
    const ui::View space = recognizer.view().superview();
    const cg::Point moved = recognizer.translationInView(space);
    const cg::Point center = button.center();
    const cg::Point target{center.x + moved.x, center.y + moved.y};
    button.setCenter(target);
    Overlay().captureButton->setCenter(CaptureButtonCenter(target));
    recognizer.setTranslation({0, 0}, space);
    if (recognizer.state() == UIGestureRecognizerStateEnded) {
        FinishDrag(button);
    }
}

} // namespace corvel
