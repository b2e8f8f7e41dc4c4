#include "uikit/text_field.hpp"

#include "apple/uikit/font.hpp"
#include "apple/uikit/text_field.hpp"
#include "render/text_layout.hpp"
#include "runtime/native_class.hpp"
#include "uikit/control.hpp"
#include "uikit/control_drawing.hpp"
#include "uikit/font.hpp"
#include "uikit/responder.hpp"
#include "uikit/text_input.hpp"
#include "uikit/text_measuring.hpp"
#include "uikit/view.hpp"

#include <algorithm>
#include <cairo.h>
#include <cmath>

namespace sim {
namespace {

using ui::TextField;

/// UITextBorderStyle.
constexpr long kNoBorder = 0;
constexpr long kRoundedRect = 3;

// Points.
constexpr double kHeight = 34;
constexpr double kBorderedInset = 7;
constexpr double kCaretWidth = 2;
constexpr double kSelectionAlpha = 0.2;

struct TextFieldState {
    EditableText text;
    objc::Ref<ns::String> placeholder;
    objc::Ref<ui::Color> textColor; // nil is the label colour
    objc::Ref<ui::Font> font;       // nil is the system font, 17 points
    objc::Ref<ui::View> accessory;
    long borderStyle = kNoBorder;
    long keyboardType = 0;
    long textAlignment = 0;
};

TextFieldState &StateOfField(ui::View self) {
    return StateOf<TextFieldState>(self);
}

ns::String Text(TextField self, objc::SEL) {
    return StateOfField(self).text.text();
}

void SetText(TextField self, objc::SEL, ns::String text) {
    StateOfField(self).text.SetText(text);
}

ns::String Placeholder(TextField self, objc::SEL) {
    return StateOfField(self).placeholder;
}

void SetPlaceholder(TextField self, objc::SEL, ns::String text) {
    StateOfField(self).placeholder = objc::Ref<ns::String>::Adopt(objc::Send<"copy", ns::String>(text));
}

ui::Color TextColor(TextField self, objc::SEL) {
    const TextFieldState &state = StateOfField(self);
    return state.textColor ? state.textColor.get() : ui::Color::labelColor();
}

void SetTextColor(TextField self, objc::SEL, ui::Color color) {
    StateOfField(self).textColor = color;
}

ui::Font Font(TextField self, objc::SEL) {
    constexpr double kDefaultSize = 17;
    const TextFieldState &state = StateOfField(self);
    return state.font ? state.font.get() : ui::Font::systemFontOfSize(kDefaultSize);
}

void SetFont(TextField self, objc::SEL, ui::Font font) {
    StateOfField(self).font = font;
}

ui::View InputAccessoryView(TextField self, objc::SEL) {
    return StateOfField(self).accessory;
}

void SetInputAccessoryView(TextField self, objc::SEL, ui::View view) {
    StateOfField(self).accessory = view;
}

template <long TextFieldState::*Member> long Get(TextField self, objc::SEL) {
    return StateOfField(self).*Member;
}

template <long TextFieldState::*Member> void Set(TextField self, objc::SEL, long value) {
    StateOfField(self).*Member = value;
}

// Editing.

EditableText &TextOf(ui::View self) {
    return StateOfField(self).text;
}

/// A field has one line: the return key, or a line end that is pasted, adds nothing.
void DropLineEnds(EditableText &text) {
    const unsigned long before = text.text().length();
    std::u16string units = UnitsOf(text.text());
    std::erase_if(units, [](char16_t unit) { return unit == u'\n' || unit == u'\r'; });
    if (units.size() != before) {
        const unsigned long caret = text.selection().location - (before - units.size());
        text.SetText(ns::String::stringWithCharacters(units.data(), units.size()));
        text.Select({caret, 0});
    }
}

void Edited(ui::View self) {
    const unsigned long length = StateOfField(self).text.text().length();
    DropLineEnds(StateOfField(self).text);
    const bool onlyReturn = length != StateOfField(self).text.text().length();
    if (!onlyReturn) {
        SendControlEvents(ui::Control{self.pointer}, kEditingChanged, nullptr);
    }
}

bool IsEditing(TextField self, objc::SEL) {
    return FirstResponder() == self;
}

bool CanBecomeFirstResponder(TextField self, objc::SEL) {
    return ControlStateOf(self).enabled && WindowOf(self);
}

bool BecomeFirstResponder(TextField self, objc::SEL) {
    const bool was = FirstResponder() == self;
    const bool is = objc::SendSuper<"becomeFirstResponder", bool>(ui::Control{self.pointer});
    if (is && !was) {
        SendControlEvents(self, kEditingDidBegin, nullptr);
    }
    return is;
}

bool ResignFirstResponder(TextField self, objc::SEL) {
    const objc::Ref<TextField> keep = self;
    const bool was = FirstResponder() == self;
    const bool resigned = objc::SendSuper<"resignFirstResponder", bool>(ui::Control{self.pointer});
    if (resigned && was) {
        SendControlEvents(self, kEditingDidEnd, nullptr);
    }
    return resigned;
}

void EndTracking(TextField self, objc::SEL, ui::Touch, ui::Event) {
    if (ControlStateOf(self).touchInside) {
        self.becomeFirstResponder();
    }
}

// Layout and drawing.

cg::Rect TextRectForBounds(TextField self, objc::SEL, cg::Rect bounds) {
    const double inset = StateOfField(self).borderStyle == kNoBorder ? 0 : kBorderedInset;
    return {{bounds.origin.x + inset, bounds.origin.y},
            {std::max(bounds.size.width - 2 * inset, 0.0), bounds.size.height}};
}

cg::Size SizeThatFits(TextField self, objc::SEL, cg::Size) {
    const TextFieldState &state = StateOfField(self);
    const FontFace face = FaceOf(state.font);
    const bool empty = state.text.text().length() == 0;
    const std::u16string units = UnitsOf(empty ? state.placeholder.get() : state.text.text());
    const double width = MeasureText(units, {face, Wrapping::kNone, 0}).width;
    const bool bordered = state.borderStyle != kNoBorder;
    return {std::ceil(width) + (bordered ? 2 * kBorderedInset : 0),
            bordered ? kHeight : std::ceil(MetricsOf(face).lineHeight)};
}

void DrawBorder(cairo_t *context, long style, cg::Rect bounds) {
    constexpr double kRadius = 5;
    const double radius = style == kRoundedRect ? kRadius : 0;
    SetPaint(context, objc::SendClass<ui::Color, "tertiarySystemBackgroundColor", ui::Color>());
    FillRounded(context, bounds, radius);
    SetPaint(context, objc::SendClass<ui::Color, "separatorColor", ui::Color>());
    StrokeRounded(context, bounds, radius, 1);
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
    constexpr long kCenter = 1;
    constexpr long kRight = 2;
    FieldLine line{.units = UnitsOf(state.text.text()), .face = FaceOf(state.font)};
    const FontMetrics metrics = MetricsOf(line.face);
    const double rest = room.size.width - line.PlaceOf(line.units.size());
    const double part = state.textAlignment == kCenter ? 0.5 : state.textAlignment == kRight ? 1 : 0;
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
}

void DrawField(ui::View view, cairo_t *context) {
    const TextField self{view.pointer};
    const TextFieldState &state = StateOfField(self);
    const cg::Rect bounds{{0, 0}, PresentedValues(view).bounds.size};
    if (state.borderStyle != kNoBorder) {
        DrawBorder(context, state.borderStyle, bounds);
    }
    const cg::Rect room = TextRectForBounds(self, nullptr, bounds);
    const FieldLine line = PlaceLine(state, room);
    cairo_rectangle(context, room.origin.x - kCaretWidth, 0, room.size.width + 2 * kCaretWidth, bounds.size.height);
    cairo_clip(context);
    if (line.units.empty() && state.placeholder) {
        SetPaint(context, objc::SendClass<ui::Color, "placeholderTextColor", ui::Color>());
        DrawLine(context, UnitsOf(state.placeholder), line.face,
                 {room.origin.x, line.baseline, room.size.width, line.left > room.origin.x ? 0.5 : 0},
                 Truncation::kTail);
    } else {
        SetPaint(context, TextColor(self, nullptr), ControlStateOf(self).enabled ? 1 : kDisabledAlpha);
        DrawLine(context, line.units, line.face, {line.left, line.baseline, room.size.width, 0});
    }
    if (FirstResponder() == self) {
        DrawSelection(context, line, state.text.selection());
    }
}

/// Optional methods of the protocol that views with a keyboard adopt, listed under its name: the class itself does not
/// declare them.
void AddTextInputTraits(objc::Class cls) {
    using S = TextFieldState;
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"keyboardType", &Get<&S::keyboardType>>(),
        objc::MethodNamed<"setKeyboardType:", &Set<&S::keyboardType>>(),
    };
    objc::AddMethods(cls, methods);
    for (const objc::MethodEntry &method : methods) {
        ApiRows().push_back({"UITextInputTraits", '-', sel_getName(method.selector()), method.encoding});
    }
}

} // namespace

void RegisterTextField() {
    using S = TextFieldState;
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"text", &Text>(),
        objc::MethodNamed<"setText:", &SetText>(),
        objc::MethodNamed<"placeholder", &Placeholder>(),
        objc::MethodNamed<"setPlaceholder:", &SetPlaceholder>(),
        objc::MethodNamed<"textColor", &TextColor>(),
        objc::MethodNamed<"setTextColor:", &SetTextColor>(),
        objc::MethodNamed<"font", &Font>(),
        objc::MethodNamed<"setFont:", &SetFont>(),
        objc::MethodNamed<"borderStyle", &Get<&S::borderStyle>>(),
        objc::MethodNamed<"setBorderStyle:", &Set<&S::borderStyle>>(),
        objc::MethodNamed<"textAlignment", &Get<&S::textAlignment>>(),
        objc::MethodNamed<"setTextAlignment:", &Set<&S::textAlignment>>(),
        objc::MethodNamed<"inputAccessoryView", &InputAccessoryView>(),
        objc::MethodNamed<"setInputAccessoryView:", &SetInputAccessoryView>(),
        objc::MethodNamed<"isEditing", &IsEditing>(),
        objc::MethodNamed<"canBecomeFirstResponder", &CanBecomeFirstResponder>(),
        objc::MethodNamed<"becomeFirstResponder", &BecomeFirstResponder>(),
        objc::MethodNamed<"resignFirstResponder", &ResignFirstResponder>(),
        objc::MethodNamed<"endTrackingWithTouch:withEvent:", &EndTracking>(),
        objc::MethodNamed<"textRectForBounds:", &TextRectForBounds>(),
        objc::MethodNamed<"sizeThatFits:", &SizeThatFits>(),
    };
    AddTextInputTraits(RegisterClassWithState<TextFieldState>("UITextField", "UIControl", methods));
    RegisterDrawing("UITextField", &DrawField);
    RegisterTextInput("UITextField", {&TextOf, &Edited});
}

} // namespace sim
