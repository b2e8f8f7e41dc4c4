#pragma once
// UIViewController.

#include "apple/uikit/view.hpp"

enum UIModalPresentationStyle : long {
    UIModalPresentationAutomatic = -2,
    UIModalPresentationPageSheet = 1,
    UIModalPresentationFormSheet = 2,
    UIModalPresentationOverFullScreen = 5,
};

enum UIModalTransitionStyle : long { UIModalTransitionStyleCoverVertical = 0, UIModalTransitionStyleCrossDissolve = 2 };

namespace ui {

struct PresentationController;

struct ViewController : Responder {
    using Responder::Responder;
    static constexpr const char *kClassName = "UIViewController";

    View view() const {
        return objc::Send<"view", View>(*this);
    }
    void setModalPresentationStyle(UIModalPresentationStyle style) const {
        objc::Send<"setModalPresentationStyle:", void>(*this, style);
    }
    /// The controller that this one or an ancestor presents at the moment; nil when none does.
    ViewController presentedViewController() const {
        return objc::Send<"presentedViewController", ViewController>(*this);
    }
    /// Made at the first call, for the presentation that comes.
    PresentationController presentationController() const;
    /// The controller that presents this one or an ancestor at the moment; nil when none does.
    ViewController presentingViewController() const {
        return objc::Send<"presentingViewController", ViewController>(*this);
    }
    void presentViewController(ViewController controller, bool animated, objc::Block<void()> completion) const {
        objc::Send<"presentViewController:animated:completion:", void>(*this, controller, animated, completion);
    }
    void dismissViewControllerAnimated(bool animated, objc::Block<void()> completion) const {
        objc::Send<"dismissViewControllerAnimated:completion:", void>(*this, animated, completion);
    }
};

/// How a view controller is presented.
struct PresentationController : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIPresentationController";

    /// The delegate is not retained; it hears in `presentationControllerDidDismiss:` of a sheet that the user swiped
    /// away.
    void setDelegate(ns::Object delegate) const {
        objc::Send<"setDelegate:", void>(*this, delegate);
    }
    ViewController presentedViewController() const {
        return objc::Send<"presentedViewController", ViewController>(*this);
    }
};

inline PresentationController ViewController::presentationController() const {
    return objc::Send<"presentationController", PresentationController>(*this);
}

} // namespace ui
