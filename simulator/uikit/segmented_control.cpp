// UISegmentedControl, with titles.

#include "apple/uikit/segmented_control.hpp"
#include "render/text_layout.hpp"
#include "runtime/native_class.hpp"
#include "runtime/utf16.hpp"
#include "uikit/classes.hpp"
#include "uikit/color.hpp"
#include "uikit/control.hpp"
#include "uikit/drawing.hpp"
#include "uikit/font.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <cairo.h>
#include <cmath>

extern "C" {
extern const ns::String NSForegroundColorAttributeName;
}

namespace sim {
namespace {

using ui::SegmentedControl;

// Points.
constexpr double kHeight = 31;
constexpr double kTitlePadding = 10;
constexpr double kTitleMargin = 2;
constexpr double kDefaultFontSize = 13;

struct SegmentedState {
    std::vector<objc::Ref<ns::String>> titles;
    std::map<UIControlState, objc::Ref<ns::Dictionary>> attributes;
    long selected = UISegmentedControlNoSegment;
    long touched = UISegmentedControlNoSegment; // where the finger was last; counts while the control is highlighted
};

FontFace FaceFor(const SegmentedState &state, UIControlState controlState) {
    const auto font = objc::As<ui::Font>(ForState(state.attributes, controlState).objectForKey(NSFontAttributeName));
    return font ? FaceOf(font) : FontFace{kDefaultFontSize, false};
}

double WidthOf(const SegmentedState &state, ns::String title) {
    return MeasureText(UnitsOf(title), {FaceFor(state, UIControlStateNormal), Wrapping::kNone, 0}).width;
}

cg::Size SizeThatFits(const SegmentedState &state, cg::Size) {
    double widest = 0;
    for (const objc::Ref<ns::String> &title : state.titles) {
        widest = std::max(widest, WidthOf(state, title));
    }
    return {static_cast<double>(state.titles.size()) * (std::ceil(widest) + 2 * kTitlePadding), kHeight};
}

SegmentedControl InitWithItems(SegmentedControl self, ns::Array items) {
    const auto made = objc::As<SegmentedControl>(self.initWithFrame({}));
    for (const ns::Object item : ns::ArrayOf<ns::Object>(items)) {
        const bool isTitle = item.isKindOfClass(objc::ClassOf<ns::String>());
        StateOf<SegmentedState>(made).titles.push_back(CopyOf(isTitle ? objc::As<ns::String>(item) : ns::String{}));
    }
    made.setFrame({{0, 0}, made.sizeThatFits({})});
    return made;
}

/// The segment nearest to the finger, if there is any.
long SegmentAt(SegmentedControl self, ui::Touch touch) {
    const auto &state = StateOf<SegmentedState>(self);
    const cg::Rect bounds = self.bounds();
    if (state.titles.empty() || !(bounds.size.width > 0)) {
        return UISegmentedControlNoSegment;
    }
    const double part = (FromScreen(self, TouchStateOf(touch).location).x - bounds.origin.x) / bounds.size.width;
    const auto count = static_cast<double>(state.titles.size());
    return static_cast<long>(std::clamp(std::floor(part * count), 0.0, count - 1));
}

bool Track(SegmentedControl self, ui::Touch touch, ui::Event) {
    StateOf<SegmentedState>(self).touched = SegmentAt(self, touch);
    return true;
}

/// The finger selects the segment on which it is lifted.
void EndTracking(SegmentedControl self, ui::Touch touch, ui::Event event) {
    auto &state = StateOf<SegmentedState>(self);
    const long index = SegmentAt(self, touch);
    if (index != UISegmentedControlNoSegment && ControlStateOf(self).touchInside && index != state.selected) {
        state.selected = index;
        SendControlEvents(self, UIControlEventValueChanged, event);
    }
}

// Drawing.

void DrawTitle(cairo_t *context, const SegmentedState &state, ns::String title, cg::Rect room, bool selected,
               double alpha) {
    const UIControlState controlState = selected ? UIControlStateSelected : UIControlStateNormal;
    const FontFace face = FaceFor(state, controlState);
    const FontMetrics metrics = MetricsOf(face);
    const auto color =
        objc::As<ui::Color>(ForState(state.attributes, controlState).objectForKey(NSForegroundColorAttributeName));
    SetPaint(context, color ? color : ui::Color::labelColor(), alpha);
    const double baseline = room.origin.y + (room.size.height - metrics.lineHeight) / 2 + metrics.ascender;
    const double width = std::max(room.size.width - 2 * kTitleMargin, 1.0);
    DrawLine(context, UnitsOf(title), face, {room.origin.x + kTitleMargin, baseline, width, 0.5}, Truncation::kTail);
}

void DrawSegments(ui::View view, cairo_t *context) {
    constexpr double kRadius = 8;
    constexpr double kGap = 2;
    constexpr double kHeldGap = 3.5;      // under a finger the selection is smaller
    constexpr double kTouchedAlpha = 0.2; // of a title under a finger, not selected
    const auto &state = StateOf<SegmentedState>(view);
    const cg::Size size = PresentedValues(view).bounds.size;
    SetPaint(context, objc::SendClass<ui::Color, "tertiarySystemFillColor", ui::Color>());
    FillRounded(context, {{0, 0}, size}, kRadius);
    const double width = size.width / static_cast<double>(std::max<std::size_t>(state.titles.size(), 1));
    for (long i = 0; i < std::ssize(state.titles); ++i) {
        const double left = width * static_cast<double>(i);
        const bool selected = i == state.selected;
        const bool touched = i == state.touched && StateOf<ControlState>(view).highlighted;
        if (selected) {
            const double gap = touched ? kHeldGap : kGap;
            const ui::Color knob = IsDarkAppearance() ? ui::Color::colorWithWhite(0.39, 1) : ui::Color::whiteColor();
            DrawKnob(context, {{left + gap, gap}, {width - 2 * gap, size.height - 2 * gap}}, kRadius - 1, knob);
        } else if (i > 0 && i - 1 != state.selected) {
            SetPaint(context, ui::Color::separatorColor());
            FillRounded(context, {{left - 0.5, size.height / 4}, {1, size.height / 2}}, 0);
        }
        const ns::String title = state.titles[static_cast<std::size_t>(i)];
        DrawTitle(context, state, title, {{left, 0}, {width, size.height}}, selected,
                  touched && !selected ? kTouchedAlpha : 1);
    }
}

void DefineAttributes(Class<SegmentedState> &segments) {
    segments.Method<"titleTextAttributesForState:">([](const SegmentedState &state, UIControlState controlState) {
        const auto found = state.attributes.find(controlState);
        return found == state.attributes.end() ? ns::Dictionary{} : found->second.get();
    });
    segments.Method<"setTitleTextAttributes:forState:">(
        [](SegmentedState &state, ns::Dictionary attributes, UIControlState controlState) {
            if (attributes) {
                state.attributes[controlState] = CopyOf(attributes);
            } else {
                state.attributes.erase(controlState);
            }
        });
}

} // namespace

void DefineSegmentedControl() {
    auto segments = Class<SegmentedState>("UISegmentedControl", "UIControl");
    segments.Method<"initWithItems:", &InitWithItems>();
    segments.Method<"numberOfSegments">([](const SegmentedState &state) { return state.titles.size(); });
    segments.Method<"titleForSegmentAtIndex:">([](const SegmentedState &state, unsigned long index) {
        return index < state.titles.size() ? state.titles[index].get() : ns::String{};
    });
    segments.Property<"selectedSegmentIndex", &SegmentedState::selected>([](SegmentedState &state) {
        if (state.selected < 0 || state.selected >= std::ssize(state.titles)) {
            state.selected = UISegmentedControlNoSegment;
        }
    });
    DefineAttributes(segments);
    segments.Method<"sizeThatFits:", &SizeThatFits>();
    segments.Method<"beginTrackingWithTouch:withEvent:", &Track>();
    segments.Method<"continueTrackingWithTouch:withEvent:", &Track>();
    segments.Method<"endTrackingWithTouch:withEvent:", &EndTracking>();
    segments.Method<"gestureRecognizerShouldBegin:", &TapControlAllows>();
    RegisterDrawing("UISegmentedControl", &DrawSegments);
}

} // namespace sim
