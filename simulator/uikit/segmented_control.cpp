#include "uikit/segmented_control.hpp"

#include "apple/uikit/segmented_control.hpp"
#include "render/text_layout.hpp"
#include "runtime/native_class.hpp"
#include "uikit/color.hpp"
#include "uikit/control.hpp"
#include "uikit/control_drawing.hpp"
#include "uikit/font.hpp"
#include "uikit/text_measuring.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <map>

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
    std::map<unsigned long, objc::Ref<ns::Dictionary>> attributes;
    long selected = ui::kNoSegment;
};

SegmentedState &StateOfSegments(ui::View self) {
    return StateOf<SegmentedState>(self);
}

/// What is set for the state, else what is set for the normal state, else nil.
ns::Dictionary AttributesFor(const SegmentedState &state, unsigned long controlState) {
    auto found = state.attributes.find(controlState);
    if (found == state.attributes.end()) {
        found = state.attributes.find(ui::kStateNormal);
    }
    return found == state.attributes.end() ? ns::Dictionary{} : found->second.get();
}

FontFace FaceFor(const SegmentedState &state, unsigned long controlState) {
    const auto font = objc::As<ui::Font>(AttributesFor(state, controlState).objectForKey(NSFontAttributeName));
    return font ? FaceOf(font) : FontFace{kDefaultFontSize, false};
}

double WidthOf(const SegmentedState &state, ns::String title) {
    return MeasureText(UnitsOf(title), {FaceFor(state, ui::kStateNormal), Wrapping::kNone, 0}).width;
}

cg::Size SizeThatFits(SegmentedControl self, objc::SEL, cg::Size) {
    const SegmentedState &state = StateOfSegments(self);
    double widest = 0;
    for (const objc::Ref<ns::String> &title : state.titles) {
        widest = std::max(widest, WidthOf(state, title));
    }
    return {static_cast<double>(state.titles.size()) * (std::ceil(widest) + 2 * kTitlePadding), kHeight};
}

SegmentedControl InitWithItems(SegmentedControl self, objc::SEL, ns::Array items) {
    const SegmentedControl made{self.initWithFrame({}).pointer};
    if (!made) {
        return made;
    }
    for (unsigned long i = 0; i < items.count(); ++i) {
        const ns::Object item = items.objectAtIndex(i);
        const bool isTitle = item.isKindOfClass(objc::ClassOf<ns::String>());
        const auto title = isTitle ? ns::String{item.pointer} : ns::String{};
        StateOfSegments(made).titles.push_back(objc::Ref<ns::String>::Adopt(objc::Send<"copy", ns::String>(title)));
    }
    made.setFrame({{0, 0}, made.sizeThatFits({})});
    return made;
}

unsigned long NumberOfSegments(SegmentedControl self, objc::SEL) {
    return StateOfSegments(self).titles.size();
}

ns::String TitleForSegment(SegmentedControl self, objc::SEL, unsigned long index) {
    const SegmentedState &state = StateOfSegments(self);
    return index < state.titles.size() ? state.titles[index].get() : ns::String{};
}

long SelectedSegmentIndex(SegmentedControl self, objc::SEL) {
    return StateOfSegments(self).selected;
}

/// An index that no segment has selects none.
void SetSelectedSegmentIndex(SegmentedControl self, objc::SEL, long index) {
    SegmentedState &state = StateOfSegments(self);
    state.selected = index >= 0 && index < std::ssize(state.titles) ? index : ui::kNoSegment;
}

ns::Dictionary TitleTextAttributes(SegmentedControl self, objc::SEL, unsigned long controlState) {
    const std::map<unsigned long, objc::Ref<ns::Dictionary>> &attributes = StateOfSegments(self).attributes;
    const auto found = attributes.find(controlState);
    return found == attributes.end() ? ns::Dictionary{} : found->second.get();
}

void SetTitleTextAttributes(SegmentedControl self, objc::SEL, ns::Dictionary attributes, unsigned long controlState) {
    if (attributes) {
        StateOfSegments(self).attributes[controlState] =
            objc::Ref<ns::Dictionary>::Adopt(objc::Send<"copy", ns::Dictionary>(attributes));
    } else {
        StateOfSegments(self).attributes.erase(controlState);
    }
}

/// The finger selects the segment on which it is lifted.
void EndTracking(SegmentedControl self, objc::SEL, ui::Touch touch, ui::Event event) {
    SegmentedState &state = StateOfSegments(self);
    const cg::Rect bounds = self.bounds();
    if (state.titles.empty() || !ControlStateOf(self).touchInside || !(bounds.size.width > 0)) {
        return;
    }
    const double part = (FromScreen(self, TouchStateOf(touch).location).x - bounds.origin.x) / bounds.size.width;
    const auto count = static_cast<double>(state.titles.size());
    const auto index = static_cast<long>(std::clamp(std::floor(part * count), 0.0, count - 1));
    if (index != state.selected) {
        state.selected = index;
        SendControlEvents(self, kValueChanged, event);
    }
}

bool GestureRecognizerShouldBegin(SegmentedControl self, objc::SEL, ui::GestureRecognizer recognizer) {
    return TapControlAllows(self, recognizer);
}

// Drawing.

void DrawTitle(cairo_t *context, const SegmentedState &state, ns::String title, cg::Rect room, bool selected) {
    const unsigned long controlState = selected ? kStateSelected : ui::kStateNormal;
    const FontFace face = FaceFor(state, controlState);
    const FontMetrics metrics = MetricsOf(face);
    const auto color =
        objc::As<ui::Color>(AttributesFor(state, controlState).objectForKey(NSForegroundColorAttributeName));
    SetPaint(context, color ? color : ui::Color::labelColor());
    const double baseline = room.origin.y + (room.size.height - metrics.lineHeight) / 2 + metrics.ascender;
    const double width = std::max(room.size.width - 2 * kTitleMargin, 1.0);
    DrawLine(context, UnitsOf(title), face, {room.origin.x + kTitleMargin, baseline, width, 0.5}, Truncation::kTail);
}

void DrawSegments(ui::View view, cairo_t *context) {
    constexpr double kRadius = 8;
    constexpr double kGap = 2;
    const SegmentedState &state = StateOfSegments(view);
    const cg::Size size = PresentedValues(view).bounds.size;
    SetPaint(context, objc::SendClass<ui::Color, "tertiarySystemFillColor", ui::Color>());
    FillRounded(context, {{0, 0}, size}, kRadius);
    const double width = size.width / static_cast<double>(std::max<std::size_t>(state.titles.size(), 1));
    for (long i = 0; i < std::ssize(state.titles); ++i) {
        const double left = width * static_cast<double>(i);
        const bool selected = i == state.selected;
        if (selected) {
            const ui::Color knob = IsDarkAppearance() ? ui::Color::colorWithWhite(0.39, 1) : ui::Color::whiteColor();
            DrawKnob(context, {{left + kGap, kGap}, {width - 2 * kGap, size.height - 2 * kGap}}, kRadius - 1, knob);
        } else if (i > 0 && i - 1 != state.selected) {
            SetPaint(context, ui::Color::separatorColor());
            FillRounded(context, {{left - 0.5, size.height / 4}, {1, size.height / 2}}, 0);
        }
        const ns::String title = state.titles[static_cast<std::size_t>(i)];
        DrawTitle(context, state, title, {{left, 0}, {width, size.height}}, selected);
    }
}

} // namespace

void RegisterSegmentedControl() {
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"initWithItems:", &InitWithItems>(),
        objc::MethodNamed<"numberOfSegments", &NumberOfSegments>(),
        objc::MethodNamed<"titleForSegmentAtIndex:", &TitleForSegment>(),
        objc::MethodNamed<"selectedSegmentIndex", &SelectedSegmentIndex>(),
        objc::MethodNamed<"setSelectedSegmentIndex:", &SetSelectedSegmentIndex>(),
        objc::MethodNamed<"titleTextAttributesForState:", &TitleTextAttributes>(),
        objc::MethodNamed<"setTitleTextAttributes:forState:", &SetTitleTextAttributes>(),
        objc::MethodNamed<"sizeThatFits:", &SizeThatFits>(),
        objc::MethodNamed<"endTrackingWithTouch:withEvent:", &EndTracking>(),
        objc::MethodNamed<"gestureRecognizerShouldBegin:", &GestureRecognizerShouldBegin>(),
    };
    RegisterClassWithState<SegmentedState>("UISegmentedControl", "UIControl", methods);
    RegisterDrawing("UISegmentedControl", &DrawSegments);
}

} // namespace sim
