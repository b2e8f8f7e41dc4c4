// UISwitch.

#include "apple/uikit/switch.hpp"
#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"
#include "uikit/control.hpp"
#include "uikit/drawing.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <cairo.h>
#include <cmath>

namespace sim {
namespace {

using ui::Switch;

/// Every switch has this size (points), whatever frame it is given.
constexpr cg::Size kSize{51, 31};
/// From this distance (points) on, a finger sets the switch by its direction instead of toggling it.
constexpr double kDragDistance = 10;

struct SwitchState {
    bool on = false;
    objc::Ref<ui::Color> onTintColor; // nil is the system's green
    double grabbedAt = 0;             // where the finger landed, in the switch's coordinates
};

double PlaceAcross(Switch self, ui::Touch touch) {
    return FromScreen(self, TouchStateOf(touch).location).x;
}

/// A tap toggles the switch; a finger dragged across it sets it on (to the right) or off.
void EndTracking(Switch self, ui::Touch touch, ui::Event event) {
    const auto &state = StateOf<SwitchState>(self);
    const double way = PlaceAcross(self, touch) - state.grabbedAt;
    const bool drawn = std::abs(way) > kDragDistance;
    const bool wanted = drawn ? way > 0 : state.on != ControlStateOf(self).touchInside;
    if (wanted != state.on) {
        objc::Send<"setOn:animated:", void>(self, wanted, true);
        SendControlEvents(self, UIControlEventValueChanged, event);
    }
}

void DrawSwitch(ui::View view, cairo_t *context) {
    constexpr double kKnob = 27;
    constexpr double kHeldKnob = 34; // under a finger it is wider
    constexpr double kGap = 2;
    const auto &state = StateOf<SwitchState>(view);
    const auto &control = StateOf<ControlState>(view);
    const double alpha = control.enabled ? 1 : kDisabledAlpha;
    if (state.on) {
        SetPaint(context, state.onTintColor ? state.onTintColor.get() : ui::Color::systemGreenColor(), alpha);
    } else {
        SetPaint(context, objc::SendClass<ui::Color, "secondarySystemFillColor", ui::Color>(), alpha);
    }
    FillRounded(context, {{0, 0}, kSize}, kSize.height / 2);
    const double width = control.highlighted ? kHeldKnob : kKnob;
    const double left = state.on ? kSize.width - kGap - width : kGap;
    DrawKnob(context, {{left, kGap}, {width, kKnob}}, kKnob / 2, ui::Color::whiteColor());
}

} // namespace

void DefineSwitch() {
    auto toggle = Class<SwitchState>("UISwitch", "UIControl");
    toggle.Method<"initWithFrame:">([](ui::Control self, cg::Rect frame) {
        return objc::SendSuper<"initWithFrame:", ui::View>(self, cg::Rect{frame.origin, kSize});
    });
    toggle.Method<"setFrame:">([](ui::Control self, cg::Rect frame) {
        objc::SendSuper<"setFrame:", void>(self, cg::Rect{frame.origin, kSize});
    });
    toggle.Method<"setBounds:">([](ui::Control self, cg::Rect bounds) {
        objc::SendSuper<"setBounds:", void>(self, cg::Rect{bounds.origin, kSize});
    });
    toggle.Method<"sizeThatFits:">([](Switch, cg::Size) { return kSize; });
    toggle.Method<"intrinsicContentSize">([](Switch) { return kSize; });
    toggle.Property<"isOn", &SwitchState::on>();
    // Not animated: nobody looks at the knob on its way.
    toggle.Method<"setOn:animated:">([](SwitchState &state, bool on, bool) { state.on = on; });
    toggle.Property<"onTintColor", &SwitchState::onTintColor>();
    toggle.Method<"beginTrackingWithTouch:withEvent:">([](Switch self, ui::Touch touch, ui::Event) {
        StateOf<SwitchState>(self).grabbedAt = PlaceAcross(self, touch);
        return true;
    });
    toggle.Method<"endTrackingWithTouch:withEvent:", &EndTracking>();
    toggle.Method<"gestureRecognizerShouldBegin:">([](Switch self, ui::GestureRecognizer recognizer) {
        return TapControlAllows(self, recognizer) && PanControlAllows(self, recognizer);
    });
    RegisterDrawing("UISwitch", &DrawSwitch);
}

} // namespace sim
