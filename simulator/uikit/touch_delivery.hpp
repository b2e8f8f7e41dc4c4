#pragma once
// The way of a touch: window, gesture recognisers, view. Used by the classes that take part in it.

#include "uikit/event.hpp"

namespace sim {

/// Brings the touch that an event is about to the window's recognisers and to its view: what UIWindow does in
/// sendEvent:.
void DeliverEvent(ui::Window window, ui::Event event);

/// The windows in which the touches of an event are.
std::vector<ui::Window> WindowsTouchedBy(ui::Event event);

/// The front-most view that takes a finger at the point (screen coordinates); nil when no window has one.
ui::View HitTestWindows(cg::Point point, ui::Event event);

/// Ends the touches that landed in the view, and its recognisers' gestures, as cancelled.
void CancelTouchesOf(ui::View view);

/// Lets a recogniser take part in settling until its gesture is over.
void Engage(ui::GestureRecognizer recognizer);

/// After recognisers changed state: sends their actions, takes touches from views where a recognised gesture does that,
/// and resets the recognisers whose gesture is over. Each delivery of an event ends with it.
void SettleRecognizers();

/// The same in a later turn, for changes from outside.
void ScheduleSettling();

} // namespace sim
