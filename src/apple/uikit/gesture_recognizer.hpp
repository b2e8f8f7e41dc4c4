#pragma once
// Gesture recognisers and what they act on.

#include "apple/uikit/view.hpp"

enum UIGestureRecognizerState : long {
    UIGestureRecognizerStatePossible = 0,
    UIGestureRecognizerStateBegan = 1,
    UIGestureRecognizerStateChanged = 2,
    UIGestureRecognizerStateEnded = 3,
    UIGestureRecognizerStateCancelled = 4,
    UIGestureRecognizerStateFailed = 5,
};

enum UITouchPhase : long {
    UITouchPhaseBegan = 0,
    UITouchPhaseMoved = 1,
    UITouchPhaseStationary = 2,
    UITouchPhaseEnded = 3,
    UITouchPhaseCancelled = 4,
};

namespace ui {

struct Touch : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UITouch";

    View view() const {
        return objc::Send<"view", View>(*this);
    }
};

struct GestureRecognizer : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIGestureRecognizer";

    GestureRecognizer initWithTarget(ns::Object target, objc::SEL action) const {
        return objc::Send<"initWithTarget:action:", GestureRecognizer>(*this, target, action);
    }
    void addTarget(ns::Object target, objc::SEL action) const {
        objc::Send<"addTarget:action:", void>(*this, target, action);
    }
    cg::Point locationInView(View view) const {
        return objc::Send<"locationInView:", cg::Point>(*this, view);
    }
    UIGestureRecognizerState state() const {
        return objc::Send<"state", UIGestureRecognizerState>(*this);
    }
    View view() const {
        return objc::Send<"view", View>(*this);
    }
    /// The delegate is not retained.
    void setDelegate(ns::Object delegate) const {
        objc::Send<"setDelegate:", void>(*this, delegate);
    }
    void setCancelsTouchesInView(bool cancels) const {
        objc::Send<"setCancelsTouchesInView:", void>(*this, cancels);
    }
};

inline void View::addGestureRecognizer(GestureRecognizer recognizer) const {
    objc::Send<"addGestureRecognizer:", void>(*this, recognizer);
}

struct TapGestureRecognizer : GestureRecognizer {
    using GestureRecognizer::GestureRecognizer;
    static constexpr const char *kClassName = "UITapGestureRecognizer";
};

struct LongPressGestureRecognizer : GestureRecognizer {
    using GestureRecognizer::GestureRecognizer;
    static constexpr const char *kClassName = "UILongPressGestureRecognizer";
};

struct PanGestureRecognizer : GestureRecognizer {
    using GestureRecognizer::GestureRecognizer;
    static constexpr const char *kClassName = "UIPanGestureRecognizer";

    cg::Point translationInView(View view) const {
        return objc::Send<"translationInView:", cg::Point>(*this, view);
    }
    void setTranslation(cg::Point translation, View view) const {
        objc::Send<"setTranslation:inView:", void>(*this, translation, view);
    }
};

} // namespace ui
