// UIView: its life, its place and its looks.

#include "uikit/view.hpp"

#include "uikit/classes.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/view_geometry.hpp"
#include "uikit/view_parts.hpp"

#include <algorithm>

namespace sim {
namespace {

/// A property that can be animated.
template <objc::FixedString Getter, auto Member> void DefineAnimated(ViewClass &view) {
    using Kind = Stored<std::remove_cvref_t<decltype(ViewValues{}.*Member)>>;
    view.Method<Getter>([](const ViewState &state) { return Kind::Read(state.model.*Member); });
    view.Method<SetterName<Getter>()>([](ui::View self, typename Kind::Value value) {
        ViewValues values = ViewStateOf(self).model;
        Kind::Write(values.*Member, value);
        SetViewValues(self, values);
    });
}

void DefinePlace(ViewClass &view) {
    view.Method<"frame">([](const ViewState &state) { return FrameOf(state.model); });
    view.Method<"setFrame:">(
        [](ui::View self, cg::Rect frame) { SetViewValues(self, WithFrame(ViewStateOf(self).model, frame)); });
    DefineAnimated<"bounds", &ViewValues::bounds>(view);
    DefineAnimated<"center", &ViewValues::center>(view);
    DefineAnimated<"transform", &ViewValues::transform>(view);
    view.Method<"convertPoint:toView:">(
        [](ui::View self, cg::Point point, ui::View other) { return ConvertPoint(point, self, other); });
    view.Method<"convertPoint:fromView:">(
        [](ui::View self, cg::Point point, ui::View other) { return ConvertPoint(point, other, self); });
    view.Method<"convertRect:toView:">(
        [](ui::View self, cg::Rect rect, ui::View other) { return ConvertRect(rect, self, other); });
    view.Method<"convertRect:fromView:">(
        [](ui::View self, cg::Rect rect, ui::View other) { return ConvertRect(rect, other, self); });
}

void DefineLooks(ViewClass &view) {
    view.Method<"alpha">([](const ViewState &state) { return state.model.alpha; });
    view.Method<"setAlpha:">([](ui::View self, double alpha) {
        ViewValues values = ViewStateOf(self).model;
        // The layer keeps its opacity as a float, so what is read back is the float's value.
        values.alpha = static_cast<float>(std::clamp(alpha, 0.0, 1.0));
        SetViewValues(self, values);
    });
    DefineAnimated<"backgroundColor", &ViewValues::backgroundColor>(view);
    view.Property<"isHidden", &ViewState::hidden>();
    view.Property<"clipsToBounds", &ViewState::clipsToBounds>();
    view.Property<"tag", &ViewState::tag>();
    view.Method<"layer">([](ViewState &state) -> ca::Layer {
        if (!state.layer) {
            state.layer = ns::New<ca::Layer>();
        }
        return state.layer;
    });
    view.Method<"setNeedsDisplay">([](ui::View) {}); // every picture is drawn anew
}

} // namespace

void DefineView() {
    auto view = ViewClass("UIView", "UIResponder");
    view.Method<"initWithFrame:">([](ui::Responder self, cg::Rect frame) {
        const auto made = objc::SendSuper<"init", ui::View>(self);
        SetViewValues(made, WithFrame(ViewStateOf(made).model, frame));
        return made;
    });
    view.Method<"init">([](ui::View self) { return self.initWithFrame({}); });
    view.Dealloc([](ui::View self) {
        const ViewState &state = ViewStateOf(self);
        EndAnimations(self);
        for (const objc::Ref<ui::View> &child : state.subviews) {
            ViewStateOf(child).superview = nullptr;
        }
        for (const objc::Ref<ui::GestureRecognizer> &recognizer : state.recognizers) {
            SetRecognizerView(recognizer, nullptr);
        }
    });
    DefinePlace(view);
    DefineLooks(view);
    DefineViewTree(view);
    DefineViewLayout(view);
    DefineViewTouches(view);
    DefineViewAnimation(view);
}

} // namespace sim
