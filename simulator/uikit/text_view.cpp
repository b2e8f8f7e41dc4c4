// UITextView.

#include "apple/uikit/text_view.hpp"
#include "render/text_layout.hpp"
#include "runtime/utf16.hpp"
#include "uikit/classes.hpp"
#include "uikit/drawing.hpp"
#include "uikit/font.hpp"
#include "uikit/gesture_recognizer.hpp"
#include "uikit/responder.hpp"
#include "uikit/scroll_view.hpp"
#include "uikit/text_input.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <cairo.h>
#include <cmath>

namespace sim {
namespace {

using ui::TextView;

/// Points between the container's sides and the text, in every text view.
constexpr double kLinePadding = 5;

struct TextViewState {
    EditableText text;
    objc::Ref<ui::Color> textColor; // nil is the label colour
    objc::Ref<ui::Font> font;       // nil is the system font, 12 points
    objc::Ref<ui::View> accessory;
    ui::EdgeInsets inset{8, 0, 8, 0};
    bool editable = true;
};

FontFace FaceOfText(const TextViewState &state) {
    constexpr double kDefaultSize = 12;
    return state.font ? FaceOf(state.font) : FontFace{kDefaultSize, false};
}

// Layout, in the content's coordinates.

struct TextPlace {
    std::u16string units;
    std::vector<TextLine> lines;
    FontFace face;
    FontMetrics metrics;
    double left = 0;
    double top = 0;
    double width = 0;

    double TopOf(std::size_t line) const {
        return top + static_cast<double>(line) * metrics.lineHeight;
    }
    /// The line of a place between two units; the end of a wrapped line belongs to the next line.
    std::size_t LineAt(std::size_t unit) const {
        const auto after = std::ranges::upper_bound(lines, unit, {}, &TextLine::start);
        return after == lines.begin() ? 0 : static_cast<std::size_t>(after - lines.begin()) - 1;
    }
    /// The distance from a line's start to a place between two units.
    double AdvanceTo(std::size_t line, std::size_t unit) const {
        const TextLine &place = lines[line];
        const std::size_t end = std::clamp(unit, place.start, place.end);
        const std::u16string_view head = std::u16string_view(units).substr(place.start, end - place.start);
        return head.empty() ? 0 : MeasureText(head, {face, Wrapping::kNone, 0}).width;
    }
    cg::Rect CaretAt(std::size_t unit) const {
        const std::size_t line = LineAt(unit);
        const double x = std::min(AdvanceTo(line, unit), width);
        return {{left + x - kCaretWidth / 2, TopOf(line)}, {kCaretWidth, metrics.lineHeight}};
    }
};

TextPlace PlaceText(ui::View self, cg::Size size) {
    const auto &state = StateOf<TextViewState>(self);
    TextPlace place;
    place.units = UnitsOf(state.text.text());
    place.face = FaceOfText(state);
    place.metrics = MetricsOf(place.face);
    place.left = state.inset.left + kLinePadding;
    place.top = state.inset.top;
    place.width = std::max(size.width - state.inset.left - state.inset.right - 2 * kLinePadding, 1.0);
    place.lines = BreakLines(place.units, {place.face, Wrapping::kWord, place.width});
    return place;
}

double HeightOf(ui::View self, const TextPlace &place) {
    return std::ceil(place.TopOf(place.lines.size()) + StateOf<TextViewState>(self).inset.bottom);
}

void FitContent(ui::View self) {
    const cg::Size size = self.bounds().size;
    objc::As<ui::ScrollView>(self).setContentSize({size.width, HeightOf(self, PlaceText(self, size))});
}

/// After typing: the content gets its new height and the caret is brought in sight.
void Edited(ui::View self) {
    FitContent(self);
    const ns::Range selection = StateOf<TextViewState>(self).text.selection();
    const TextPlace place = PlaceText(self, self.bounds().size);
    const ui::EdgeInsets &inset = StateOf<TextViewState>(self).inset;
    cg::Rect caret = place.CaretAt(selection.location + selection.length);
    caret.origin.y -= inset.top;
    caret.size.height += inset.top + inset.bottom;
    ScrollToRect(self, caret, false);
}

EditableText &TextOf(ui::View self) {
    return StateOf<TextViewState>(self).text;
}

// A tap brings the keyboard up and the caret to where the finger was.

std::size_t UnitNear(const TextPlace &place, cg::Point point) {
    const double row = std::floor((point.y - place.top) / place.metrics.lineHeight);
    const auto line = static_cast<std::size_t>(std::clamp(row, 0.0, static_cast<double>(place.lines.size()) - 1));
    const TextLine &whole = place.lines[line];
    std::size_t nearest = whole.start;
    double smallest = std::abs(point.x - place.left);
    for (std::size_t unit = whole.start + 1; unit <= whole.end; ++unit) {
        const bool splitsPair = unit < place.units.size() && IsLowSurrogate(place.units[unit]);
        const double distance = std::abs(point.x - place.left - place.AdvanceTo(line, unit));
        if (!splitsPair && distance <= smallest) {
            nearest = unit;
            smallest = distance;
        }
    }
    return nearest;
}

void HandleTap(TextView self, ui::GestureRecognizer tap) {
    if (tap.state() == UIGestureRecognizerStateEnded && self.becomeFirstResponder()) {
        const auto point = objc::Send<"locationInView:", cg::Point>(tap, self);
        TextOf(self).Select({UnitNear(PlaceText(self, self.bounds().size), point), 0});
    }
}

// Drawing.

void DrawSelection(cairo_t *context, const TextPlace &place, std::size_t line, ns::Range selection) {
    const TextLine &whole = place.lines[line];
    const std::size_t from = std::max<std::size_t>(selection.location, whole.start);
    const std::size_t to = std::min<std::size_t>(selection.location + selection.length, whole.end);
    if (from < to) {
        const double left = place.AdvanceTo(line, from);
        cairo_rectangle(context, place.left + left, place.TopOf(line), place.AdvanceTo(line, to) - left,
                        place.metrics.lineHeight);
        cairo_fill(context);
    }
}

void DrawTextView(ui::View view, cairo_t *context) {
    const auto &state = StateOf<TextViewState>(view);
    const cg::Rect bounds = PresentedValues(view).bounds;
    if (!(bounds.size.width > 0) || !(bounds.size.height > 0)) {
        return;
    }
    const TextPlace place = PlaceText(view, bounds.size);
    const ns::Range selection = state.text.selection();
    const bool edited = FirstResponder() == view;
    const ui::Color tint = ui::Color::systemBlueColor();
    cairo_translate(context, -bounds.origin.x, -bounds.origin.y);
    cairo_rectangle(context, bounds.origin.x, bounds.origin.y, bounds.size.width, bounds.size.height);
    cairo_clip(context);
    for (std::size_t line = 0; line < place.lines.size(); ++line) {
        const double top = place.TopOf(line);
        if (top + place.metrics.lineHeight < bounds.origin.y) {
            continue;
        }
        if (top > bounds.origin.y + bounds.size.height) {
            break;
        }
        if (edited && selection.length > 0) {
            SetPaint(context, tint, kSelectionAlpha);
            DrawSelection(context, place, line, selection);
        }
        SetPaint(context, state.textColor ? state.textColor.get() : ui::Color::labelColor());
        const TextLine &whole = place.lines[line];
        DrawLine(context, std::u16string_view(place.units).substr(whole.start, whole.end - whole.start), place.face,
                 {place.left, top + place.metrics.ascender, place.width, 0});
    }
    if (edited && selection.length > 0) {
        DrawGrabber(context, place.CaretAt(selection.location), true);
        DrawGrabber(context, place.CaretAt(selection.location + selection.length), false);
    } else if (edited) {
        const cg::Rect caret = place.CaretAt(selection.location);
        SetPaint(context, tint);
        cairo_rectangle(context, caret.origin.x, caret.origin.y, caret.size.width, caret.size.height);
        cairo_fill(context);
    }
}

void DefineText(Class<TextViewState> &textView) {
    textView.Method<"text">([](const TextViewState &state) { return state.text.text(); });
    textView.Method<"setText:">([](TextView self, ns::String text) {
        TextOf(self).SetText(text);
        FitContent(self);
    });
    textView.Property<"textColor", &TextViewState::textColor>();
    textView.Property<"font", &TextViewState::font, &FitContent>();
    textView.Property<"textContainerInset", &TextViewState::inset, &FitContent>();
}

void DefineEditing(Class<TextViewState> &textView) {
    textView.Method<"selectedRange">([](const TextViewState &state) { return state.text.selection(); });
    textView.Method<"setSelectedRange:">([](TextViewState &state, ns::Range range) { state.text.Select(range); });
    textView.Property<"isEditable", &TextViewState::editable>([](TextView self) {
        if (!StateOf<TextViewState>(self).editable && FirstResponder() == self) {
            self.resignFirstResponder();
        }
    });
    textView.Property<"inputAccessoryView", &TextViewState::accessory>();
    textView.Method<"canBecomeFirstResponder">(
        [](TextView self) { return StateOf<TextViewState>(self).editable && WindowOf(self); });
    textView.Method<"_handleTap:", &HandleTap>();
}

} // namespace

void DefineTextView() {
    auto textView = Class<TextViewState>("UITextView", "UIScrollView");
    textView.Method<"initWithFrame:">([](ui::ScrollView self, cg::Rect frame) {
        const auto view = objc::SendSuper<"initWithFrame:", ui::View>(self, frame);
        view.setBackgroundColor(ui::Color::systemBackgroundColor());
        AddRecognizer<ui::TapGestureRecognizer>(view, objc::Selector<"_handleTap:">());
        FitContent(view);
        return view;
    });
    DefineText(textView);
    DefineEditing(textView);
    textView.Method<"layoutSubviews", &FitContent>();
    textView.Method<"sizeThatFits:">(
        [](ui::View self, cg::Size size) { return cg::Size{size.width, HeightOf(self, PlaceText(self, size))}; });
    RegisterDrawing("UITextView", &DrawTextView);
    RegisterTextInput("UITextView", {&TextOf, &Edited});
}

} // namespace sim
