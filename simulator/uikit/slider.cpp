// UISlider.

#include "apple/uikit/slider.hpp"
#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"
#include "uikit/control.hpp"
#include "uikit/drawing.hpp"
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
/// How far beside the thumb a finger still grabs it.
constexpr double kGrabSlop = 10;

struct SliderState {
    float minimum = 0;
    float maximum = 1;
    float value = 0;
    bool continuous = true;
    double grabOffset = 0; // from the finger to the thumb's middle, along the track
    bool moved = false;    // since the finger landed
};

/// The value moved into the range; NaN becomes the minimum.
float Clamped(const SliderState &state, float value) {
    return value > state.minimum ? std::min(value, state.maximum) : state.minimum;
}

void Clamp(SliderState &state) {
    state.value = Clamped(state, state.value);
}

// Geometry.

/// The thumb's left edge at the minimum, and how far right of it the maximum is.
struct ThumbWay {
    double start;
    double length;
};

ThumbWay WayOf(cg::Rect track) {
    return {track.origin.x - kTrackMargin, std::max(track.size.width + 2 * kTrackMargin - kThumb, 0.0)};
}

cg::Rect ThumbRect(const SliderState &state, cg::Rect bounds, cg::Rect track, float value) {
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
                                                                       StateOf<SliderState>(self).value);
}

float ValueAt(Slider self, double thumbMiddle) {
    const auto &state = StateOf<SliderState>(self);
    const ThumbWay way = WayOf(PresentTrack(self));
    const double part = way.length > 0 ? (thumbMiddle - kThumb / 2 - way.start) / way.length : 0;
    return Clamped(state,
                   static_cast<float>(state.minimum + part * (static_cast<double>(state.maximum) - state.minimum)));
}

// Touches. Only a finger on the thumb grabs it.

bool BeginTracking(Slider self, ui::Touch touch, ui::Event) {
    const cg::Point point = FromScreen(self, TouchStateOf(touch).location);
    const cg::Rect thumb = PresentThumb(self);
    StateOf<SliderState>(self).grabOffset = thumb.origin.x + kThumb / 2 - point.x;
    StateOf<SliderState>(self).moved = false;
    return Contains(Grown(thumb, kGrabSlop), point);
}

bool ContinueTracking(Slider self, ui::Touch touch, ui::Event event) {
    auto &state = StateOf<SliderState>(self);
    const float value = ValueAt(self, FromScreen(self, TouchStateOf(touch).location).x + state.grabOffset);
    if (value != state.value) {
        state.value = value;
        state.moved = true;
        if (state.continuous) {
            SendControlEvents(self, UIControlEventValueChanged, event);
        }
    }
    return true;
}

void EndTracking(Slider self, ui::Touch, ui::Event event) {
    const auto &state = StateOf<SliderState>(self);
    if (state.moved && !state.continuous) {
        SendControlEvents(self, UIControlEventValueChanged, event);
    }
}

void DrawSlider(ui::View view, cairo_t *context) {
    const auto self = objc::As<Slider>(view);
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

void DefineValues(Class<SliderState> &slider) {
    slider.Property<"minimumValue", &SliderState::minimum>([](SliderState &state) {
        state.maximum = std::max(state.maximum, state.minimum);
        Clamp(state);
    });
    slider.Property<"maximumValue", &SliderState::maximum>([](SliderState &state) {
        state.minimum = std::min(state.minimum, state.maximum);
        Clamp(state);
    });
    slider.Property<"value", &SliderState::value, &Clamp>();
    // Not animated: nobody looks at the thumb on its way.
    slider.Method<"setValue:animated:">([](Slider self, float value, bool) { self.setValue(value); });
    slider.Property<"isContinuous", &SliderState::continuous>();
}

} // namespace

void DefineSlider() {
    auto slider = Class<SliderState>("UISlider", "UIControl");
    DefineValues(slider);
    slider.Method<"sizeThatFits:">([](Slider, cg::Size size) { return cg::Size{size.width, kHeight}; });
    slider.Method<"trackRectForBounds:">([](Slider, cg::Rect bounds) -> cg::Rect {
        return {{bounds.origin.x + kTrackMargin, bounds.origin.y + (bounds.size.height - kTrackHeight) / 2},
                {std::max(bounds.size.width - 2 * kTrackMargin, 0.0), kTrackHeight}};
    });
    slider.Method<"thumbRectForBounds:trackRect:value:", &ThumbRect>();
    slider.Method<"beginTrackingWithTouch:withEvent:", &BeginTracking>();
    slider.Method<"continueTrackingWithTouch:withEvent:", &ContinueTracking>();
    slider.Method<"endTrackingWithTouch:withEvent:", &EndTracking>();
    slider.Method<"gestureRecognizerShouldBegin:", &PanControlAllows>();
    RegisterDrawing("UISlider", &DrawSlider);
}

} // namespace sim
