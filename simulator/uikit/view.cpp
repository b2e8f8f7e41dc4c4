#include "uikit/view.hpp"

#include "runtime/block_function.hpp"
#include "runtime/clock.hpp"
#include "runtime/exception.hpp"
#include "runtime/native_class.hpp"
#include "uikit/application.hpp"
#include "uikit/array.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/responder.hpp"
#include "uikit/touch_delivery.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <ranges>
#include <utility>

namespace sim {
namespace {

using Subviews = std::vector<objc::Ref<ui::View>>;

Subviews::iterator PlaceOf(ui::View child, Subviews &subviews) {
    return std::ranges::find(subviews, child, &objc::Ref<ui::View>::get);
}

/// Calls the function with the view and all below it, as they stand when it is reached.
template <class F> void ForSubtree(ui::View view, F function) {
    function(view);
    for (const objc::Ref<ui::View> &child : Subviews(ViewStateOf(view).subviews)) {
        ForSubtree(child.get(), function);
    }
}

/// What was under way in a view ends when the view leaves its window.
void LeaveWindow(ui::View view) {
    EndAnimations(view);
    CancelTouchesOf(view);
    if (FirstResponder() == view) {
        objc::Send<"resignFirstResponder", bool>(ui::Responder{view.pointer});
    }
}

void ScheduleLayout() {
    static bool scheduled = false;
    if (!scheduled) {
        scheduled = true;
        clock::Schedule(0, [] {
            scheduled = false;
            LayoutWindows();
        });
    }
}

/// Moves the view within its parent's subviews.
void Reorder(ui::View parent, ui::View child, std::size_t index) {
    Subviews &subviews = ViewStateOf(parent).subviews;
    const auto place = PlaceOf(child, subviews);
    const objc::Ref<ui::View> keep = *place;
    subviews.erase(place);
    subviews.insert(subviews.begin() + static_cast<long>(std::min(index, subviews.size())), keep);
    SetNeedsLayout(parent);
}

/// Takes the view from its parent, if any, and puts it into another, if any.
void Reparent(ui::View child, ui::View parent, std::size_t index) {
    const objc::Ref<ui::View> keep = child;
    const objc::Ref<ui::View> old = ViewStateOf(child).superview;
    const ui::Window oldWindow = WindowOf(old);
    const ui::Window newWindow = WindowOf(parent);
    const bool windowChanges = !(oldWindow == newWindow);
    if (windowChanges) {
        ForSubtree(child, [&](ui::View view) { objc::Send<"willMoveToWindow:", void>(view, newWindow); });
    }
    objc::Send<"willMoveToSuperview:", void>(child, parent);
    if (old) {
        objc::Send<"willRemoveSubview:", void>(old.get(), child);
        Subviews &siblings = ViewStateOf(old).subviews;
        if (const auto place = PlaceOf(child, siblings); place != siblings.end()) {
            siblings.erase(place);
        }
    }
    ViewStateOf(child).superview = parent;
    if (parent) {
        Subviews &siblings = ViewStateOf(parent).subviews;
        siblings.insert(siblings.begin() + static_cast<long>(std::min(index, siblings.size())), keep);
    }
    if (windowChanges) {
        ForSubtree(child, [&](ui::View view) {
            if (oldWindow) {
                LeaveWindow(view);
            }
            objc::Send<"didMoveToWindow", void>(view);
        });
    }
    objc::Send<"didMoveToSuperview", void>(child);
    if (parent) {
        objc::Send<"didAddSubview:", void>(parent, child);
        SetNeedsLayout(parent);
    }
}

ui::View InitWithFrame(ui::View self, objc::SEL, cg::Rect frame) {
    const auto view = ui::View{objc::SendSuper<"init", ns::Object>(ui::Responder{self.pointer}).pointer};
    if (view) {
        SetViewValues(view, WithFrame(ViewStateOf(view).model, frame));
    }
    return view;
}

ui::View Init(ui::View self, objc::SEL) {
    return self.initWithFrame({});
}

void Dealloc(ui::View self, objc::SEL selector) {
    const ViewState &state = ViewStateOf(self);
    EndAnimations(self);
    for (const objc::Ref<ui::View> &child : state.subviews) {
        ViewStateOf(child).superview = nullptr;
    }
    for (const objc::Ref<ui::GestureRecognizer> &recognizer : state.recognizers) {
        SetRecognizerView(recognizer, nullptr);
    }
    detail::Dealloc<ViewState>(self.pointer, selector);
}

// Geometry and looks.

cg::Rect Frame(ui::View self, objc::SEL) {
    return FrameOf(ViewStateOf(self).model);
}

void SetFrame(ui::View self, objc::SEL, cg::Rect frame) {
    SetViewValues(self, WithFrame(ViewStateOf(self).model, frame));
}

cg::Rect Bounds(ui::View self, objc::SEL) {
    return ViewStateOf(self).model.bounds;
}

/// Sets one of the view's animatable values.
template <class T> void Change(ui::View self, T ViewValues::*member, T value) {
    ViewValues values = ViewStateOf(self).model;
    values.*member = std::move(value);
    SetViewValues(self, values);
}

void SetBounds(ui::View self, objc::SEL, cg::Rect bounds) {
    Change(self, &ViewValues::bounds, bounds);
}

cg::Point Center(ui::View self, objc::SEL) {
    return ViewStateOf(self).model.center;
}

void SetCenter(ui::View self, objc::SEL, cg::Point center) {
    Change(self, &ViewValues::center, center);
}

cg::AffineTransform Transform(ui::View self, objc::SEL) {
    return ViewStateOf(self).model.transform;
}

void SetTransform(ui::View self, objc::SEL, cg::AffineTransform transform) {
    Change(self, &ViewValues::transform, transform);
}

double Alpha(ui::View self, objc::SEL) {
    return ViewStateOf(self).model.alpha;
}

void SetAlpha(ui::View self, objc::SEL, double alpha) {
    // The layer keeps its opacity as a float, so what is read back is the float's value.
    Change<double>(self, &ViewValues::alpha, static_cast<float>(std::clamp(alpha, 0.0, 1.0)));
}

ui::Color BackgroundColor(ui::View self, objc::SEL) {
    return ViewStateOf(self).model.backgroundColor;
}

void SetBackgroundColor(ui::View self, objc::SEL, ui::Color color) {
    Change(self, &ViewValues::backgroundColor, objc::Ref<ui::Color>(color));
}

bool IsHidden(ui::View self, objc::SEL) {
    return ViewStateOf(self).hidden;
}

void SetHidden(ui::View self, objc::SEL, bool hidden) {
    ViewStateOf(self).hidden = hidden;
}

bool ClipsToBounds(ui::View self, objc::SEL) {
    return ViewStateOf(self).clipsToBounds;
}

void SetClipsToBounds(ui::View self, objc::SEL, bool clips) {
    ViewStateOf(self).clipsToBounds = clips;
}

bool IsUserInteractionEnabled(ui::View self, objc::SEL) {
    return ViewStateOf(self).userInteractionEnabled;
}

void SetUserInteractionEnabled(ui::View self, objc::SEL, bool enabled) {
    ViewStateOf(self).userInteractionEnabled = enabled;
}

bool IsMultipleTouchEnabled(ui::View self, objc::SEL) {
    return ViewStateOf(self).multipleTouchEnabled;
}

void SetMultipleTouchEnabled(ui::View self, objc::SEL, bool enabled) {
    ViewStateOf(self).multipleTouchEnabled = enabled;
}

long Tag(ui::View self, objc::SEL) {
    return ViewStateOf(self).tag;
}

void SetTag(ui::View self, objc::SEL, long tag) {
    ViewStateOf(self).tag = tag;
}

ca::Layer Layer(ui::View self, objc::SEL) {
    objc::Ref<ca::Layer> &layer = ViewStateOf(self).layer;
    if (!layer) {
        layer = ns::New<ca::Layer>();
    }
    return layer;
}

// The tree.

ui::View Superview(ui::View self, objc::SEL) {
    return ViewStateOf(self).superview;
}

ns::Array SubviewsOf(ui::View self, objc::SEL) {
    return ArrayOf(ViewStateOf(self).subviews);
}

ui::Window Window(ui::View self, objc::SEL) {
    return WindowOf(self);
}

ui::View ViewWithTag(ui::View self, objc::SEL, long tag) {
    const ViewState &state = ViewStateOf(self);
    if (state.tag == tag) {
        return self;
    }
    for (const objc::Ref<ui::View> &child : state.subviews) {
        if (const ui::View found = child->viewWithTag(tag)) {
            return found;
        }
    }
    return {};
}

bool IsDescendantOfView(ui::View self, objc::SEL, ui::View ancestor) {
    return IsDescendant(self, ancestor);
}

void AddSubview(ui::View self, objc::SEL, ui::View child) {
    InsertSubview(self, child, ViewStateOf(self).subviews.size());
}

void InsertSubviewAtIndex(ui::View self, objc::SEL, ui::View child, long index) {
    InsertSubview(self, child, static_cast<std::size_t>(std::max(index, 0L)));
}

/// Inserts beside a sibling; at the front when that is no subview.
void InsertBeside(ui::View self, ui::View child, ui::View sibling, long offset) {
    const Subviews &subviews = ViewStateOf(self).subviews;
    if (child == sibling) {
        return;
    }
    // Places count without the child itself, which leaves its old one.
    long index = 0;
    for (const objc::Ref<ui::View> &other : subviews) {
        if (other.get() == sibling) {
            InsertSubview(self, child, static_cast<std::size_t>(index + offset));
            return;
        }
        index += other.get() == child ? 0 : 1;
    }
    InsertSubview(self, child, subviews.size());
}

void InsertSubviewAbove(ui::View self, objc::SEL, ui::View child, ui::View sibling) {
    InsertBeside(self, child, sibling, 1);
}

void InsertSubviewBelow(ui::View self, objc::SEL, ui::View child, ui::View sibling) {
    InsertBeside(self, child, sibling, 0);
}

void BringSubviewToFront(ui::View self, objc::SEL, ui::View child) {
    if (child && ViewStateOf(child).superview == self) {
        Reorder(self, child, ViewStateOf(self).subviews.size());
    }
}

void SendSubviewToBack(ui::View self, objc::SEL, ui::View child) {
    if (child && ViewStateOf(child).superview == self) {
        Reorder(self, child, 0);
    }
}

void RemoveFromSuperview(ui::View self, objc::SEL) {
    if (ViewStateOf(self).superview) {
        Reparent(self, nullptr, 0);
    }
}

void IgnoreView(ui::View, objc::SEL, ui::View) {}
void Ignore(ui::View, objc::SEL) {}

ui::Responder NextResponder(ui::View self, objc::SEL) {
    const ViewState &state = ViewStateOf(self);
    return state.controller ? state.controller : state.superview;
}

// Touches and coordinates.

ui::View HitTest(ui::View self, objc::SEL, cg::Point point, ui::Event event) {
    constexpr double kLeastAlpha = 0.01;
    const ViewState &state = ViewStateOf(self);
    if (state.hidden || !state.userInteractionEnabled || state.model.alpha < kLeastAlpha ||
        AnimationSuspendsInteraction(self) || !objc::Send<"pointInside:withEvent:", bool>(self, point, event)) {
        return {};
    }
    const Subviews subviews = state.subviews;
    for (const objc::Ref<ui::View> &child : std::views::reverse(subviews)) {
        if (const ui::View hit = child->hitTest(FromSuperview(ViewStateOf(child).model, point), event)) {
            return hit;
        }
    }
    return self;
}

bool PointInside(ui::View self, objc::SEL, cg::Point point, ui::Event) {
    return Contains(ViewStateOf(self).model.bounds, point);
}

cg::Point ConvertPointToView(ui::View self, objc::SEL, cg::Point point, ui::View view) {
    return ConvertPoint(point, self, view);
}

cg::Point ConvertPointFromView(ui::View self, objc::SEL, cg::Point point, ui::View view) {
    return ConvertPoint(point, view, self);
}

cg::Rect ConvertRectToView(ui::View self, objc::SEL, cg::Rect rect, ui::View view) {
    return ConvertRect(rect, self, view);
}

cg::Rect ConvertRectFromView(ui::View self, objc::SEL, cg::Rect rect, ui::View view) {
    return ConvertRect(rect, view, self);
}

ns::Array GestureRecognizers(ui::View self, objc::SEL) {
    const auto &recognizers = ViewStateOf(self).recognizers;
    return recognizers.empty() ? ns::Array{} : ArrayOf(recognizers);
}

void RemoveGestureRecognizer(ui::View self, objc::SEL, ui::GestureRecognizer recognizer) {
    auto &recognizers = ViewStateOf(self).recognizers;
    const auto place = std::ranges::find(recognizers, recognizer, &objc::Ref<ui::GestureRecognizer>::get);
    if (place == recognizers.end()) {
        return;
    }
    const objc::Ref<ui::GestureRecognizer> keep = *place;
    recognizers.erase(place);
    CancelRecognizer(keep);
    SetRecognizerView(keep, nullptr);
}

void AddGestureRecognizer(ui::View self, objc::SEL selector, ui::GestureRecognizer recognizer) {
    if (!recognizer) {
        return;
    }
    const objc::Ref<ui::GestureRecognizer> keep = recognizer;
    if (const ui::View old = recognizer.view()) {
        RemoveGestureRecognizer(old, selector, recognizer);
    }
    ViewStateOf(self).recognizers.push_back(keep);
    SetRecognizerView(recognizer, self);
}

bool GestureRecognizerShouldBegin(ui::View, objc::SEL, ui::GestureRecognizer) {
    return true;
}

bool EndEditing(ui::View self, objc::SEL, bool) {
    const ui::Responder responder = FirstResponder();
    for (ui::Responder step = responder; step; step = objc::Send<"nextResponder", ui::Responder>(step)) {
        if (step == self) {
            return objc::Send<"resignFirstResponder", bool>(responder);
        }
    }
    return false;
}

// Layout.

void SetNeedsLayoutMethod(ui::View self, objc::SEL) {
    SetNeedsLayout(self);
}

void LayoutIfNeededMethod(ui::View self, objc::SEL) {
    LayoutIfNeeded(self);
}

cg::Size SizeThatFits(ui::View self, objc::SEL, cg::Size) {
    return ViewStateOf(self).model.bounds.size;
}

void SizeToFit(ui::View self, objc::SEL) {
    const cg::Rect frame = self.frame();
    self.setFrame({frame.origin, self.sizeThatFits(self.bounds().size)});
}

// Animation.

void AnimateWithOptions(ui::View, objc::SEL, double duration, double delay, unsigned long options,
                        objc::Block<void()> animations, objc::Block<void(bool)> completion) {
    const unsigned long curve = (options & kAnimationCurveMask) >> 16;
    Animate({duration, delay, options, AnimationCurve::Plain(curve)}, FunctionOf(animations), FunctionOf(completion));
}

void AnimateWithCompletion(ui::View self, objc::SEL selector, double duration, objc::Block<void()> animations,
                           objc::Block<void(bool)> completion) {
    AnimateWithOptions(self, selector, duration, 0, 0, animations, completion);
}

void AnimateOnly(ui::View self, objc::SEL selector, double duration, objc::Block<void()> animations) {
    AnimateWithOptions(self, selector, duration, 0, 0, animations, {});
}

void AnimateWithSpring(ui::View, objc::SEL, double duration, double delay, double damping, double velocity,
                       unsigned long options, objc::Block<void()> animations, objc::Block<void(bool)> completion) {
    Animate({duration, delay, options, AnimationCurve::Spring(damping, velocity, duration)}, FunctionOf(animations),
            FunctionOf(completion));
}

void PerformWithoutAnimation(ui::View, objc::SEL, objc::Block<void()> actions) {
    WithoutAnimation(FunctionOf(actions));
}

} // namespace

ui::Window WindowOf(ui::View view) {
    while (view) {
        const ui::View parent = ViewStateOf(view).superview;
        if (!parent) {
            return view.isKindOfClass(objc::ClassOf<ui::Window>()) ? ui::Window{view.pointer} : ui::Window{};
        }
        view = parent;
    }
    return {};
}

bool IsDescendant(ui::View view, ui::View ancestor) {
    for (; view; view = ViewStateOf(view).superview) {
        if (view == ancestor) {
            return true;
        }
    }
    return false;
}

void InsertSubview(ui::View parent, ui::View child, std::size_t index) {
    if (!child) {
        return;
    }
    if (IsDescendant(parent, child)) {
        RaiseException("NSInvalidArgumentException", "Can't add self as subview");
    }
    if (ViewStateOf(child).superview == parent) {
        Reorder(parent, child, index);
    } else {
        Reparent(child, parent, index);
    }
}

void SetNeedsLayout(ui::View view) {
    if (view) {
        ViewStateOf(view).needsLayout = true;
        ScheduleLayout();
    }
}

void LayoutIfNeeded(ui::View view) {
    const objc::Ref<ui::View> keep = view;
    ViewState &state = ViewStateOf(view);
    // A layout may ask for another; one that never rests would hang the phone, here it is left after some rounds.
    constexpr int kMostRounds = 8;
    for (int round = 0; state.needsLayout && round < kMostRounds; ++round) {
        state.needsLayout = false;
        const ui::Responder controller = state.controller;
        objc::Send<"viewWillLayoutSubviews", void>(As<ui::ViewController>(controller));
        objc::Send<"layoutSubviews", void>(view);
        objc::Send<"viewDidLayoutSubviews", void>(As<ui::ViewController>(controller));
    }
    for (const objc::Ref<ui::View> &child : Subviews(state.subviews)) {
        LayoutIfNeeded(child.get());
    }
}

void RegisterView() {
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"initWithFrame:", &InitWithFrame>(),
        objc::MethodNamed<"init", &Init>(),
        objc::MethodNamed<"dealloc", &Dealloc>(),
        objc::MethodNamed<"frame", &Frame>(),
        objc::MethodNamed<"setFrame:", &SetFrame>(),
        objc::MethodNamed<"bounds", &Bounds>(),
        objc::MethodNamed<"setBounds:", &SetBounds>(),
        objc::MethodNamed<"center", &Center>(),
        objc::MethodNamed<"setCenter:", &SetCenter>(),
        objc::MethodNamed<"transform", &Transform>(),
        objc::MethodNamed<"setTransform:", &SetTransform>(),
        objc::MethodNamed<"alpha", &Alpha>(),
        objc::MethodNamed<"setAlpha:", &SetAlpha>(),
        objc::MethodNamed<"backgroundColor", &BackgroundColor>(),
        objc::MethodNamed<"setBackgroundColor:", &SetBackgroundColor>(),
        objc::MethodNamed<"isHidden", &IsHidden>(),
        objc::MethodNamed<"setHidden:", &SetHidden>(),
        objc::MethodNamed<"clipsToBounds", &ClipsToBounds>(),
        objc::MethodNamed<"setClipsToBounds:", &SetClipsToBounds>(),
        objc::MethodNamed<"isUserInteractionEnabled", &IsUserInteractionEnabled>(),
        objc::MethodNamed<"setUserInteractionEnabled:", &SetUserInteractionEnabled>(),
        objc::MethodNamed<"isMultipleTouchEnabled", &IsMultipleTouchEnabled>(),
        objc::MethodNamed<"setMultipleTouchEnabled:", &SetMultipleTouchEnabled>(),
        objc::MethodNamed<"tag", &Tag>(),
        objc::MethodNamed<"setTag:", &SetTag>(),
        objc::MethodNamed<"layer", &Layer>(),
        objc::MethodNamed<"superview", &Superview>(),
        objc::MethodNamed<"subviews", &SubviewsOf>(),
        objc::MethodNamed<"window", &Window>(),
        objc::MethodNamed<"viewWithTag:", &ViewWithTag>(),
        objc::MethodNamed<"isDescendantOfView:", &IsDescendantOfView>(),
        objc::MethodNamed<"addSubview:", &AddSubview>(),
        objc::MethodNamed<"insertSubview:atIndex:", &InsertSubviewAtIndex>(),
        objc::MethodNamed<"insertSubview:aboveSubview:", &InsertSubviewAbove>(),
        objc::MethodNamed<"insertSubview:belowSubview:", &InsertSubviewBelow>(),
        objc::MethodNamed<"bringSubviewToFront:", &BringSubviewToFront>(),
        objc::MethodNamed<"sendSubviewToBack:", &SendSubviewToBack>(),
        objc::MethodNamed<"removeFromSuperview", &RemoveFromSuperview>(),
        objc::MethodNamed<"didAddSubview:", &IgnoreView>(),
        objc::MethodNamed<"willRemoveSubview:", &IgnoreView>(),
        objc::MethodNamed<"willMoveToSuperview:", &IgnoreView>(),
        objc::MethodNamed<"didMoveToSuperview", &Ignore>(),
        objc::MethodNamed<"willMoveToWindow:", &IgnoreView>(),
        objc::MethodNamed<"didMoveToWindow", &Ignore>(),
        objc::MethodNamed<"nextResponder", &NextResponder>(),
        objc::MethodNamed<"hitTest:withEvent:", &HitTest>(),
        objc::MethodNamed<"pointInside:withEvent:", &PointInside>(),
        objc::MethodNamed<"convertPoint:toView:", &ConvertPointToView>(),
        objc::MethodNamed<"convertPoint:fromView:", &ConvertPointFromView>(),
        objc::MethodNamed<"convertRect:toView:", &ConvertRectToView>(),
        objc::MethodNamed<"convertRect:fromView:", &ConvertRectFromView>(),
        objc::MethodNamed<"gestureRecognizers", &GestureRecognizers>(),
        objc::MethodNamed<"addGestureRecognizer:", &AddGestureRecognizer>(),
        objc::MethodNamed<"removeGestureRecognizer:", &RemoveGestureRecognizer>(),
        objc::MethodNamed<"gestureRecognizerShouldBegin:", &GestureRecognizerShouldBegin>(),
        objc::MethodNamed<"endEditing:", &EndEditing>(),
        objc::MethodNamed<"setNeedsLayout", &SetNeedsLayoutMethod>(),
        objc::MethodNamed<"layoutIfNeeded", &LayoutIfNeededMethod>(),
        objc::MethodNamed<"layoutSubviews", &Ignore>(),
        objc::MethodNamed<"setNeedsDisplay", &Ignore>(), // every picture is drawn anew
        objc::MethodNamed<"sizeThatFits:", &SizeThatFits>(),
        objc::MethodNamed<"sizeToFit", &SizeToFit>(),
    };
    const objc::MethodEntry classMethods[] = {
        objc::MethodNamed<"animateWithDuration:animations:", &AnimateOnly>(),
        objc::MethodNamed<"animateWithDuration:animations:completion:", &AnimateWithCompletion>(),
        objc::MethodNamed<"animateWithDuration:delay:options:animations:completion:", &AnimateWithOptions>(),
        objc::MethodNamed<
            "animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:options:animations:completion:",
            &AnimateWithSpring>(),
        objc::MethodNamed<"performWithoutAnimation:", &PerformWithoutAnimation>(),
    };
    RegisterClassWithState<ViewState>("UIView", "UIResponder", methods, classMethods);
}

} // namespace sim
