// UITextField.

#include "apple/uikit/text_field.hpp"
#include "render/text_layout.hpp"
#include "runtime/native_class.hpp"
#include "runtime/utf16.hpp"
#include "uikit/classes.hpp"
#include "uikit/control.hpp"
#include "uikit/drawing.hpp"
#include "uikit/font.hpp"
#include "uikit/responder.hpp"
#include "uikit/text_input.hpp"
#include "uikit/view.hpp"

#include <algorithm>
#include <cairo.h>
#include <cmath>

namespace sim {
namespace {

using ui::TextField;

// Points.
constexpr double kHeight = 34;
constexpr double kBorderedInset = 7;

struct TextFieldState {
    EditableText text;
    objc::Ref<ns::String> placeholder;
    objc::Ref<ui::Color> textColor; // nil is the label colour
    objc::Ref<ui::Font> font;       // nil is the system font, 17 points
    objc::Ref<ui::View> accessory;
    UITextBorderStyle borderStyle = UITextBorderStyleNone;
    UIKeyboardType keyboardType = UIKeyboardTypeDefault;
    NSTextAlignment textAlignment = NSTextAlignmentLeft;
};

// Editing.

EditableText &TextOf(ui::View self) {
    return StateOf<TextFieldState>(self).text;
}

/// A field has one line: the return key, or a line end that is pasted, adds nothing.
void DropLineEnds(EditableText &text) {
    const unsigned long before = text.text().length();
    std::u16string units = UnitsOf(text.text());
    std::erase_if(units, [](char16_t unit) { return unit == u'\n' || unit == u'\r'; });
    if (units.size() != before) {
        const unsigned long caret = text.selection().location - (before - units.size());
        text.SetText(StringOf(units));
        text.Select({caret, 0});
    }
}

void Edited(ui::View self) {
    EditableText &text = TextOf(self);
    const unsigned long length = text.text().length();
    DropLineEnds(text);
    const bool onlyReturn = length != text.text().length();
    if (!onlyReturn) {
        SendControlEvents(objc::As<TextField>(self), UIControlEventEditingChanged, nullptr);
    }
}

void DefineEditing(Class<TextFieldState> &field) {
    field.Method<"isEditing">([](TextField self) { return FirstResponder() == self; });
    field.Method<"canBecomeFirstResponder">(
        [](TextField self) { return ControlStateOf(self).enabled && WindowOf(self); });
    field.Method<"becomeFirstResponder">([](TextField self) {
        const bool was = FirstResponder() == self;
        const bool is = objc::SendSuper<"becomeFirstResponder", bool>(ui::Control{self});
        if (is && !was) {
            SendControlEvents(self, UIControlEventEditingDidBegin, nullptr);
        }
        return is;
    });
    field.Method<"resignFirstResponder">([](TextField self) {
        const objc::Ref<TextField> keep = self;
        const bool was = FirstResponder() == self;
        const bool resigned = objc::SendSuper<"resignFirstResponder", bool>(ui::Control{self});
        if (resigned && was) {
            SendControlEvents(self, UIControlEventEditingDidEnd, nullptr);
        }
        return resigned;
    });
    field.Method<"endTrackingWithTouch:withEvent:">([](TextField self, ui::Touch, ui::Event) {
        if (ControlStateOf(self).touchInside) {
            self.becomeFirstResponder();
        }
    });
}

// Layout and drawing.

cg::Rect TextRect(const TextFieldState &state, cg::Rect bounds) {
    const double inset = state.borderStyle == UITextBorderStyleNone ? 0 : kBorderedInset;
    return {{bounds.origin.x + inset, bounds.origin.y},
            {std::max(bounds.size.width - 2 * inset, 0.0), bounds.size.height}};
}

cg::Size SizeThatFits(const TextFieldState &state, cg::Size) {
    const FontFace face = FaceOf(state.font);
    const bool empty = state.text.text().length() == 0;
    const std::u16string units = UnitsOf(empty ? state.placeholder.get() : state.text.text());
    const double width = MeasureText(units, {face, Wrapping::kNone, 0}).width;
    const bool bordered = state.borderStyle != UITextBorderStyleNone;
    return {std::ceil(width) + (bordered ? 2 * kBorderedInset : 0),
            bordered ? kHeight : std::ceil(MetricsOf(face).lineHeight)};
}

void DrawBorder(cairo_t *context, UITextBorderStyle style, cg::Rect bounds) {
    constexpr double kRadius = 5;
    constexpr double kBorder = 0.5;
    const double radius = style == UITextBorderStyleRoundedRect ? kRadius : 0;
    SetPaint(context, objc::SendClass<ui::Color, "tertiarySystemBackgroundColor", ui::Color>());
    FillRounded(context, bounds, radius);
    SetPaint(context, ui::Color::separatorColor());
    StrokeRounded(context, bounds, radius, kBorder);
}

/// The text as it lies in its one line.
struct FieldLine {
    std::u16string units;
    FontFace face;
    double left = 0;
    double baseline = 0;
    double top = 0;
    double height = 0;

    double PlaceOf(unsigned long unit) const {
        const std::u16string_view head = std::u16string_view(units).substr(0, unit);
        return left + (head.empty() ? 0 : MeasureText(head, {face, Wrapping::kNone, 0}).width);
    }
};

/// Text that is wider than its room shows its end.
FieldLine PlaceLine(const TextFieldState &state, cg::Rect room) {
    FieldLine line{.units = UnitsOf(state.text.text()), .face = FaceOf(state.font)};
    const FontMetrics metrics = MetricsOf(line.face);
    const double rest = room.size.width - line.PlaceOf(line.units.size());
    const double part = state.textAlignment == NSTextAlignmentCenter  ? 0.5
                        : state.textAlignment == NSTextAlignmentRight ? 1
                                                                      : 0;
    line.left = room.origin.x + (rest < 0 ? rest : rest * part);
    line.top = room.origin.y + (room.size.height - metrics.lineHeight) / 2;
    line.height = metrics.lineHeight;
    line.baseline = line.top + metrics.ascender;
    return line;
}

void DrawSelection(cairo_t *context, const FieldLine &line, ns::Range selection) {
    const double from = line.PlaceOf(selection.location);
    const bool isCaret = selection.length == 0;
    const double to = isCaret ? from + kCaretWidth : line.PlaceOf(selection.location + selection.length);
    SetPaint(context, ui::Color::systemBlueColor(), isCaret ? 1 : kSelectionAlpha);
    FillRounded(context, {{isCaret ? from - kCaretWidth / 2 : from, line.top}, {to - from, line.height}}, 0);
    if (!isCaret) {
        DrawGrabber(context, {{from, line.top}, {0, line.height}}, true);
        DrawGrabber(context, {{to, line.top}, {0, line.height}}, false);
    }
}

void DrawField(ui::View view, cairo_t *context) {
    const auto &state = StateOf<TextFieldState>(view);
    const cg::Rect bounds{{0, 0}, PresentedValues(view).bounds.size};
    if (state.borderStyle != UITextBorderStyleNone) {
        DrawBorder(context, state.borderStyle, bounds);
    }
    const cg::Rect room = TextRect(state, bounds);
    const FieldLine line = PlaceLine(state, room);
    cairo_rectangle(context, room.origin.x - kCaretWidth, 0, room.size.width + 2 * kCaretWidth, bounds.size.height);
    cairo_clip(context);
    if (line.units.empty() && state.placeholder) {
        SetPaint(context, objc::SendClass<ui::Color, "placeholderTextColor", ui::Color>());
        DrawLine(context, UnitsOf(state.placeholder), line.face,
                 {room.origin.x, line.baseline, room.size.width, line.left > room.origin.x ? 0.5 : 0},
                 Truncation::kTail);
    } else {
        const ui::Color color = state.textColor ? state.textColor.get() : ui::Color::labelColor();
        SetPaint(context, color, StateOf<ControlState>(view).enabled ? 1 : kDisabledAlpha);
        DrawLine(context, line.units, line.face, {line.left, line.baseline, room.size.width, 0});
    }
    if (FirstResponder() == view) {
        DrawSelection(context, line, state.text.selection());
    }
}

} // namespace

void DefineTextField() {
    auto field = Class<TextFieldState>("UITextField", "UIControl");
    field.Method<"text">([](const TextFieldState &state) { return state.text.text(); });
    field.Method<"setText:">([](TextFieldState &state, ns::String text) { state.text.SetText(text); });
    field.Property<"placeholder", &TextFieldState::placeholder>();
    field.PropertyOr<"textColor", &TextFieldState::textColor, &ui::Color::labelColor>();
    field.PropertyOr<"font", &TextFieldState::font, &DefaultFont>();
    field.Property<"borderStyle", &TextFieldState::borderStyle>();
    field.Property<"textAlignment", &TextFieldState::textAlignment>();
    field.Property<"inputAccessoryView", &TextFieldState::accessory>();
    // UITextField itself does not declare it.
    field.Adopting("UITextInputTraits").Property<"keyboardType", &TextFieldState::keyboardType>();
    DefineEditing(field);
    field.Method<"textRectForBounds:", &TextRect>();
    field.Method<"sizeThatFits:", &SizeThatFits>();
    RegisterDrawing("UITextField", &DrawField);
    RegisterTextInput("UITextField", {&TextOf, &Edited});
}

} // namespace sim
