#pragma once
// UITouch and UIEvent.

#include "apple/uikit/gesture_recognizer.hpp"
#include "apple/uikit/window.hpp"
#include "objc/ref.hpp"

#include <vector>

namespace sim {

struct TouchState {
    UITouchPhase phase = UITouchPhaseBegan;
    cg::Point location; // screen coordinates, here and below
    cg::Point previousLocation;
    double timestamp = 0; // seconds on the clock
    unsigned long tapCount = 1;
    objc::Ref<ui::View> view; // where it landed
    objc::Ref<ui::Window> window;
    std::vector<objc::Ref<ui::GestureRecognizer>> recognizers; // those that were given it
    bool seenByView = false;                                   // the view was told that it began
    bool takenFromView = false;                                // the view was told, or will never be told, of it
};

/// Whether the touch is over.
inline bool IsLifted(const TouchState &touch) {
    return touch.phase == UITouchPhaseEnded || touch.phase == UITouchPhaseCancelled;
}

struct EventState {
    double timestamp = 0;
    std::vector<objc::Ref<ui::Touch>> touches; // all that are down
    objc::Ref<ui::Touch> changed;              // the one that this event is about
};

TouchState &TouchStateOf(ui::Touch touch);
EventState &EventStateOf(ui::Event event);

/// A point of the screen in a view's coordinates; nil stands for the window.
cg::Point LocationInView(cg::Point screenPoint, ui::View view, ui::Window window);

} // namespace sim
