#include "uikit/switch.hpp"

#include "apple/uikit/switch.hpp"
#include "runtime/native_class.hpp"
#include "uikit/control.hpp"
#include "uikit/control_drawing.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <cairo.h>
#include <cmath>

namespace sim {
namespace {

using ui::Switch;

/// Every switch has this size (points), whatever frame it is given.
constexpr cg::Size kSize{51, 31};
/// How far (points) a finger goes to set the switch by its direction instead of turning it over.
constexpr double kDragDistance = 10;

struct SwitchState {
    bool on = false;
    objc::Ref<ui::Color> onTintColor; // nil is the system's green
    double grabbedAt = 0;             // where the finger landed, in the switch's coordinates
};

SwitchState &StateOfSwitch(ui::View self) {
    return StateOf<SwitchState>(self);
}

ui::View InitWithFrame(ui::View self, objc::SEL, cg::Rect frame) {
    return objc::SendSuper<"initWithFrame:", ui::View>(ui::Control{self.pointer}, cg::Rect{frame.origin, kSize});
}

void SetFrame(ui::View self, objc::SEL, cg::Rect frame) {
    objc::SendSuper<"setFrame:", void>(ui::Control{self.pointer}, cg::Rect{frame.origin, kSize});
}

void SetBounds(ui::View self, objc::SEL, cg::Rect bounds) {
    objc::SendSuper<"setBounds:", void>(ui::Control{self.pointer}, cg::Rect{bounds.origin, kSize});
}

cg::Size SizeThatFits(Switch, objc::SEL, cg::Size) {
    return kSize;
}

cg::Size IntrinsicContentSize(Switch, objc::SEL) {
    return kSize;
}

bool IsOn(Switch self, objc::SEL) {
    return StateOfSwitch(self).on;
}

void SetOn(Switch self, objc::SEL, bool on) {
    StateOfSwitch(self).on = on;
}

/// The knob is drawn where it belongs at once: nothing observes it on its way.
void SetOnAnimated(Switch self, objc::SEL, bool on, bool) {
    StateOfSwitch(self).on = on;
}

ui::Color OnTintColor(Switch self, objc::SEL) {
    return StateOfSwitch(self).onTintColor;
}

void SetOnTintColor(Switch self, objc::SEL, ui::Color color) {
    StateOfSwitch(self).onTintColor = color;
}

double PlaceAcross(Switch self, ui::Touch touch) {
    return FromScreen(self, TouchStateOf(touch).location).x;
}

bool BeginTracking(Switch self, objc::SEL, ui::Touch touch, ui::Event) {
    StateOfSwitch(self).grabbedAt = PlaceAcross(self, touch);
    return true;
}

/// A tap turns the switch over; a finger drawn across it sets it on (to the right) or off.
void EndTracking(Switch self, objc::SEL, ui::Touch touch, ui::Event event) {
    const SwitchState &state = StateOfSwitch(self);
    const double way = PlaceAcross(self, touch) - state.grabbedAt;
    const bool drawn = std::abs(way) > kDragDistance;
    const bool wanted = drawn ? way > 0 : state.on != ControlStateOf(self).touchInside;
    if (wanted != state.on) {
        objc::Send<"setOn:animated:", void>(self, wanted, true);
        SendControlEvents(self, kValueChanged, event);
    }
}

bool GestureRecognizerShouldBegin(Switch self, objc::SEL, ui::GestureRecognizer recognizer) {
    return TapControlAllows(self, recognizer) && PanControlAllows(self, recognizer);
}

void DrawSwitch(ui::View view, cairo_t *context) {
    constexpr double kKnob = 27;
    constexpr double kGap = 2;
    const SwitchState &state = StateOfSwitch(view);
    const double alpha = ControlStateOf(ui::Control{view.pointer}).enabled ? 1 : kDisabledAlpha;
    if (state.on) {
        SetPaint(context, state.onTintColor ? state.onTintColor.get() : ui::Color::systemGreenColor(), alpha);
    } else {
        SetPaint(context, objc::SendClass<ui::Color, "secondarySystemFillColor", ui::Color>(), alpha);
    }
    FillRounded(context, {{0, 0}, kSize}, kSize.height / 2);
    const double left = state.on ? kSize.width - kGap - kKnob : kGap;
    DrawKnob(context, {{left, kGap}, {kKnob, kKnob}}, kKnob / 2, ui::Color::whiteColor());
}

} // namespace

void RegisterSwitch() {
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"initWithFrame:", &InitWithFrame>(),
        objc::MethodNamed<"setFrame:", &SetFrame>(),
        objc::MethodNamed<"setBounds:", &SetBounds>(),
        objc::MethodNamed<"sizeThatFits:", &SizeThatFits>(),
        objc::MethodNamed<"intrinsicContentSize", &IntrinsicContentSize>(),
        objc::MethodNamed<"isOn", &IsOn>(),
        objc::MethodNamed<"setOn:", &SetOn>(),
        objc::MethodNamed<"setOn:animated:", &SetOnAnimated>(),
        objc::MethodNamed<"onTintColor", &OnTintColor>(),
        objc::MethodNamed<"setOnTintColor:", &SetOnTintColor>(),
        objc::MethodNamed<"beginTrackingWithTouch:withEvent:", &BeginTracking>(),
        objc::MethodNamed<"endTrackingWithTouch:withEvent:", &EndTracking>(),
        objc::MethodNamed<"gestureRecognizerShouldBegin:", &GestureRecognizerShouldBegin>(),
    };
    RegisterClassWithState<SwitchState>("UISwitch", "UIControl", methods);
    RegisterDrawing("UISwitch", &DrawSwitch);
}

} // namespace sim
