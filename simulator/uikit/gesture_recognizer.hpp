#pragma once
// UIGestureRecognizer: states, targets, exclusion of one gesture by another. The kinds of gesture are classes of their
// own that watch touches through touchesBegan:withEvent: and its family and set the state.

#include "runtime/clock.hpp"
#include "uikit/event.hpp"
#include "uikit/target_action.hpp"

namespace sim {

struct RecognizerState {
    UIGestureRecognizerState state = UIGestureRecognizerStatePossible;
    std::vector<TargetAction> targets;
    WeakObject delegate;
    ui::View view; // not owned
    bool enabled = true;
    bool cancelsTouchesInView = true;
    std::vector<objc::Ref<ui::Touch>> touches; // those that it watches
    cg::Point lastLocation;                    // screen coordinates, for when no touch is left
    bool recognized = false;                   // since it was last reset
    bool actionDue = false;                    // its targets have not been told of its state yet
    bool waiting = false;                      // for another touch, though none is down
};

RecognizerState &RecognizerStateOf(ui::GestureRecognizer recognizer);

/// Whether the gesture is over: ended, cancelled or failed.
bool IsOver(UIGestureRecognizerState state);

/// Whether the gesture is under way: began or changed.
bool IsUnderWay(UIGestureRecognizerState state);

/// Moves the recogniser to a state. To begin or end from possible it needs the consent of its delegate, the views and
/// the other gestures, else it fails; once recognised it excludes the other recognisers of its touches.
void SetGestureState(ui::GestureRecognizer recognizer, UIGestureRecognizerState next);

/// Ends a gesture that is under way or may become one.
void CancelRecognizer(ui::GestureRecognizer recognizer);

/// Gives a view a recogniser of T's kind, whose action is a method of the view itself.
template <class T> objc::Ref<T> AddRecognizer(ui::View view, objc::SEL action) {
    const auto recognizer = objc::Ref<T>::Adopt(objc::As<T>(ns::Alloc<T>().initWithTarget(view, action)));
    view.addGestureRecognizer(recognizer);
    return recognizer;
}

/// Notes the view to which a recogniser is attached; nil for none.
void SetRecognizerView(ui::GestureRecognizer recognizer, ui::View view);

/// The middle of the watched touches (screen coordinates), or the last one known.
cg::Point RecognizerLocation(ui::GestureRecognizer recognizer);

/// How many of the watched touches have not been lifted.
std::size_t FingersDown(ui::GestureRecognizer recognizer);

/// Sends the recogniser's action to all its targets.
void SendActions(ui::GestureRecognizer recognizer);

/// The distance between two points.
double Distance(cg::Point from, cg::Point to);

} // namespace sim
