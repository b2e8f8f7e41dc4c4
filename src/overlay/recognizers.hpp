#pragma once
// Gesture recognisers whose actions are the overlay's handlers.

#include "apple/uikit/gesture_recognizer.hpp"
#include "overlay/action_target.hpp"

namespace corvel {

/// Adds a recogniser of that class to the view, which owns it from then on.
template <class Recognizer> Recognizer AddRecognizer(ui::View view, objc::SEL action) {
    const auto recognizer =
        objc::Ref<ui::GestureRecognizer>::Adopt(ns::Alloc<Recognizer>().initWithTarget(ActionTarget(), action));
    view.addGestureRecognizer(recognizer);
    return objc::As<Recognizer>(recognizer.get());
}

} // namespace corvel
