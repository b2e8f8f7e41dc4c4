#include "uikit/slider.hpp"

#include "apple/uikit/slider.hpp"
#include "runtime/native_class.hpp"
#include "uikit/control.hpp"
#include "uikit/control_drawing.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <cairo.h>

namespace sim {
namespace {

using ui::Slider;

// Points.
constexpr double kThumb = 28;
constexpr double kTrackHeight = 4;
constexpr double kTrackMargin = 2;
constexpr double kHeight = 34;
/// How far beside the thumb a finger still takes hold of it.
constexpr double kGrabSlop = 10;

struct SliderState {
    float minimum = 0;
    float maximum = 1;
    float value = 0;
    bool continuous = true;
    double grabOffset = 0; // from the finger to the thumb's middle, along the track
    bool moved = false;    // since the finger landed
};

SliderState &StateOfSlider(ui::View self) {
    return StateOf<SliderState>(self);
}

/// The value moved into the range; what is no number becomes the least.
float Clamped(const SliderState &state, float value) {
    return value > state.minimum ? std::min(value, state.maximum) : state.minimum;
}

float MinimumValue(Slider self, objc::SEL) {
    return StateOfSlider(self).minimum;
}

void SetMinimumValue(Slider self, objc::SEL, float minimum) {
    SliderState &state = StateOfSlider(self);
    state.minimum = minimum;
    state.maximum = std::max(state.maximum, minimum);
    state.value = Clamped(state, state.value);
}

float MaximumValue(Slider self, objc::SEL) {
    return StateOfSlider(self).maximum;
}

void SetMaximumValue(Slider self, objc::SEL, float maximum) {
    SliderState &state = StateOfSlider(self);
    state.maximum = maximum;
    state.minimum = std::min(state.minimum, maximum);
    state.value = Clamped(state, state.value);
}

float Value(Slider self, objc::SEL) {
    return StateOfSlider(self).value;
}

void SetValue(Slider self, objc::SEL, float value) {
    SliderState &state = StateOfSlider(self);
    state.value = Clamped(state, value);
}

/// The thumb is drawn where it belongs at once: nothing observes it on its way.
void SetValueAnimated(Slider self, objc::SEL, float value, bool) {
    SetValue(self, nullptr, value);
}

bool IsContinuous(Slider self, objc::SEL) {
    return StateOfSlider(self).continuous;
}

void SetContinuous(Slider self, objc::SEL, bool continuous) {
    StateOfSlider(self).continuous = continuous;
}

cg::Size SizeThatFits(Slider, objc::SEL, cg::Size size) {
    return {size.width, kHeight};
}

// Geometry.

cg::Rect TrackRectForBounds(Slider, objc::SEL, cg::Rect bounds) {
    return {{bounds.origin.x + kTrackMargin, bounds.origin.y + (bounds.size.height - kTrackHeight) / 2},
            {std::max(bounds.size.width - 2 * kTrackMargin, 0.0), kTrackHeight}};
}

/// The thumb's left edge at the least value, and how far right of it the greatest is.
struct ThumbWay {
    double start;
    double length;
};

ThumbWay WayOf(cg::Rect track) {
    return {track.origin.x - kTrackMargin, std::max(track.size.width + 2 * kTrackMargin - kThumb, 0.0)};
}

cg::Rect ThumbRect(Slider self, objc::SEL, cg::Rect bounds, cg::Rect track, float value) {
    const SliderState &state = StateOfSlider(self);
    const double range = static_cast<double>(state.maximum) - state.minimum;
    const double part = range > 0 ? (static_cast<double>(Clamped(state, value)) - state.minimum) / range : 0;
    const ThumbWay way = WayOf(track);
    return {{way.start + part * way.length, bounds.origin.y + (bounds.size.height - kThumb) / 2}, {kThumb, kThumb}};
}

cg::Rect PresentTrack(Slider self) {
    return objc::Send<"trackRectForBounds:", cg::Rect>(self, self.bounds());
}

cg::Rect PresentThumb(Slider self) {
    return objc::Send<"thumbRectForBounds:trackRect:value:", cg::Rect>(self, self.bounds(), PresentTrack(self),
                                                                       StateOfSlider(self).value);
}

float ValueAt(Slider self, double thumbMiddle) {
    const SliderState &state = StateOfSlider(self);
    const ThumbWay way = WayOf(PresentTrack(self));
    const double part = way.length > 0 ? (thumbMiddle - kThumb / 2 - way.start) / way.length : 0;
    return Clamped(state,
                   static_cast<float>(state.minimum + part * (static_cast<double>(state.maximum) - state.minimum)));
}

// Touches. Only a finger on the thumb takes hold.

bool BeginTracking(Slider self, objc::SEL, ui::Touch touch, ui::Event) {
    const cg::Point point = FromScreen(self, TouchStateOf(touch).location);
    const cg::Rect thumb = PresentThumb(self);
    const cg::Rect wide{{thumb.origin.x - kGrabSlop, thumb.origin.y - kGrabSlop},
                        {thumb.size.width + 2 * kGrabSlop, thumb.size.height + 2 * kGrabSlop}};
    StateOfSlider(self).grabOffset = thumb.origin.x + kThumb / 2 - point.x;
    StateOfSlider(self).moved = false;
    return Contains(wide, point);
}

bool ContinueTracking(Slider self, objc::SEL, ui::Touch touch, ui::Event event) {
    SliderState &state = StateOfSlider(self);
    const float value = ValueAt(self, FromScreen(self, TouchStateOf(touch).location).x + state.grabOffset);
    if (value != state.value) {
        state.value = value;
        state.moved = true;
        if (state.continuous) {
            SendControlEvents(self, kValueChanged, event);
        }
    }
    return true;
}

void EndTracking(Slider self, objc::SEL, ui::Touch, ui::Event event) {
    const SliderState &state = StateOfSlider(self);
    if (state.moved && !state.continuous) {
        SendControlEvents(self, kValueChanged, event);
    }
}

bool GestureRecognizerShouldBegin(Slider self, objc::SEL, ui::GestureRecognizer recognizer) {
    return PanControlAllows(self, recognizer);
}

void DrawSlider(ui::View view, cairo_t *context) {
    const Slider self{view.pointer};
    const double alpha = ControlStateOf(self).enabled ? 1 : kDisabledAlpha;
    const cg::Rect track = PresentTrack(self);
    const cg::Rect thumb = PresentThumb(self);
    SetPaint(context, objc::SendClass<ui::Color, "systemFillColor", ui::Color>(), alpha);
    FillRounded(context, track, kTrackHeight / 2);
    SetPaint(context, ui::Color::systemBlueColor(), alpha);
    const double reached = thumb.origin.x + kThumb / 2 - track.origin.x;
    FillRounded(context, {track.origin, {reached, track.size.height}}, kTrackHeight / 2);
    DrawKnob(context, thumb, kThumb / 2, ui::Color::whiteColor());
}

} // namespace

void RegisterSlider() {
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"minimumValue", &MinimumValue>(),
        objc::MethodNamed<"setMinimumValue:", &SetMinimumValue>(),
        objc::MethodNamed<"maximumValue", &MaximumValue>(),
        objc::MethodNamed<"setMaximumValue:", &SetMaximumValue>(),
        objc::MethodNamed<"value", &Value>(),
        objc::MethodNamed<"setValue:", &SetValue>(),
        objc::MethodNamed<"setValue:animated:", &SetValueAnimated>(),
        objc::MethodNamed<"isContinuous", &IsContinuous>(),
        objc::MethodNamed<"setContinuous:", &SetContinuous>(),
        objc::MethodNamed<"sizeThatFits:", &SizeThatFits>(),
        objc::MethodNamed<"trackRectForBounds:", &TrackRectForBounds>(),
        objc::MethodNamed<"thumbRectForBounds:trackRect:value:", &ThumbRect>(),
        objc::MethodNamed<"beginTrackingWithTouch:withEvent:", &BeginTracking>(),
        objc::MethodNamed<"continueTrackingWithTouch:withEvent:", &ContinueTracking>(),
        objc::MethodNamed<"endTrackingWithTouch:withEvent:", &EndTracking>(),
        objc::MethodNamed<"gestureRecognizerShouldBegin:", &GestureRecognizerShouldBegin>(),
    };
    RegisterClassWithState<SliderState>("UISlider", "UIControl", methods);
    RegisterDrawing("UISlider", &DrawSlider);
}

} // namespace sim
