#pragma once
// UIResponder and UIView.

#include "apple/coregraphics/geometry.hpp"
#include "apple/foundation/collections.hpp"
#include "apple/quartzcore/layer.hpp"
#include "apple/uikit/color.hpp"
#include "objc/block.hpp"

using UIViewAnimationOptions = unsigned long;
enum : UIViewAnimationOptions {
    UIViewAnimationOptionAllowUserInteraction = 1 << 1,
    UIViewAnimationOptionOverrideInheritedDuration = 1 << 5,
    UIViewAnimationOptionOverrideInheritedCurve = 1 << 6,
};

enum UIViewAnimationCurve : long {
    UIViewAnimationCurveEaseInOut = 0,
    UIViewAnimationCurveEaseIn = 1,
    UIViewAnimationCurveEaseOut = 2,
    UIViewAnimationCurveLinear = 3,
};

namespace ui {

struct GestureRecognizer;

struct Event : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIEvent";
};
struct Responder : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIResponder";

    bool becomeFirstResponder() const {
        return objc::Send<"becomeFirstResponder", bool>(*this);
    }
    bool resignFirstResponder() const {
        return objc::Send<"resignFirstResponder", bool>(*this);
    }
    Responder nextResponder() const {
        return objc::Send<"nextResponder", Responder>(*this);
    }
};

struct View : Responder {
    using Responder::Responder;
    static constexpr const char *kClassName = "UIView";

    View initWithFrame(cg::Rect frame) const {
        return objc::Send<"initWithFrame:", View>(*this, frame);
    }
    cg::Rect frame() const {
        return objc::Send<"frame", cg::Rect>(*this);
    }
    void setFrame(cg::Rect frame) const {
        objc::Send<"setFrame:", void>(*this, frame);
    }
    cg::Rect bounds() const {
        return objc::Send<"bounds", cg::Rect>(*this);
    }
    cg::Point center() const {
        return objc::Send<"center", cg::Point>(*this);
    }
    void setCenter(cg::Point center) const {
        objc::Send<"setCenter:", void>(*this, center);
    }
    double alpha() const {
        return objc::Send<"alpha", double>(*this);
    }
    void setAlpha(double alpha) const {
        objc::Send<"setAlpha:", void>(*this, alpha);
    }
    bool isHidden() const {
        return objc::Send<"isHidden", bool>(*this);
    }
    void setHidden(bool hidden) const {
        objc::Send<"setHidden:", void>(*this, hidden);
    }
    void setTransform(cg::AffineTransform transform) const {
        objc::Send<"setTransform:", void>(*this, transform);
    }
    void setBackgroundColor(Color color) const {
        objc::Send<"setBackgroundColor:", void>(*this, color);
    }
    void setClipsToBounds(bool clips) const {
        objc::Send<"setClipsToBounds:", void>(*this, clips);
    }
    void setTag(long tag) const {
        objc::Send<"setTag:", void>(*this, tag);
    }
    long tag() const {
        return objc::Send<"tag", long>(*this);
    }
    ca::Layer layer() const {
        return objc::Send<"layer", ca::Layer>(*this);
    }
    View superview() const {
        return objc::Send<"superview", View>(*this);
    }
    /// The window that the view is in, seen as the view that it is.
    View window() const {
        return objc::Send<"window", View>(*this);
    }
    ns::ArrayOf<View> subviews() const {
        return objc::Send<"subviews", ns::Array>(*this);
    }
    View viewWithTag(long tag) const {
        return objc::Send<"viewWithTag:", View>(*this, tag);
    }
    void addSubview(View view) const {
        objc::Send<"addSubview:", void>(*this, view);
    }
    void removeFromSuperview() const {
        objc::Send<"removeFromSuperview", void>(*this);
    }
    /// Takes the keyboard from whatever view inside this one has it; `force` does not ask that view.
    bool endEditing(bool force) const {
        return objc::Send<"endEditing:", bool>(*this, force);
    }
    void bringSubviewToFront(View view) const {
        objc::Send<"bringSubviewToFront:", void>(*this, view);
    }
    cg::Size sizeThatFits(cg::Size size) const {
        return objc::Send<"sizeThatFits:", cg::Size>(*this, size);
    }
    void addGestureRecognizer(GestureRecognizer recognizer) const;
    bool drawViewHierarchyInRect(cg::Rect rect, bool afterUpdates) const {
        return objc::Send<"drawViewHierarchyInRect:afterScreenUpdates:", bool>(*this, rect, afterUpdates);
    }
    View hitTest(cg::Point point, Event event) const {
        return objc::Send<"hitTest:withEvent:", View>(*this, point, event);
    }
    static void animateWithDuration(double duration, objc::Block<void()> animations) {
        objc::SendClass<View, "animateWithDuration:animations:", void>(duration, animations);
    }
    static void animateWithDuration(double duration, objc::Block<void()> animations,
                                    objc::Block<void(bool)> completion) {
        objc::SendClass<View, "animateWithDuration:animations:completion:", void>(duration, animations, completion);
    }
    static void animateWithDuration(double duration, double delay, UIViewAnimationOptions options,
                                    objc::Block<void()> animations, objc::Block<void(bool)> completion) {
        objc::SendClass<View, "animateWithDuration:delay:options:animations:completion:", void>(
            duration, delay, options, animations, completion);
    }
    static void animateWithDuration(double duration, double delay, double damping, double velocity,
                                    UIViewAnimationOptions options, objc::Block<void()> animations,
                                    objc::Block<void(bool)> completion) {
        objc::SendClass<
            View,
            "animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:options:animations:completion:",
            void>(duration, delay, damping, velocity, options, animations, completion);
    }
};

/// A new view of T's class with the frame.
template <class T> objc::Ref<T> MakeView(cg::Rect frame) {
    return objc::Ref<T>::Adopt(objc::As<T>(ns::Alloc<T>().initWithFrame(frame)));
}

} // namespace ui
