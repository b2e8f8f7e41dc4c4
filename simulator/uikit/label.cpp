// UILabel.

#include "apple/uikit/label.hpp"
#include "render/text_layout.hpp"
#include "runtime/native_class.hpp"
#include "runtime/utf16.hpp"
#include "uikit/application.hpp"
#include "uikit/classes.hpp"
#include "uikit/drawing.hpp"
#include "uikit/fingerprint.hpp"
#include "uikit/font.hpp"
#include "uikit/view_state.hpp"

#include <algorithm>
#include <cairo.h>
#include <cmath>

namespace sim {
namespace {

struct LabelState {
    objc::Ref<ns::String> text;
    objc::Ref<ui::Color> textColor; // nil is the label colour
    objc::Ref<ui::Font> font;       // nil is the system font, 17 points
    NSTextAlignment alignment = NSTextAlignmentNatural;
    NSLineBreakMode breakMode = NSLineBreakByTruncatingTail;
    long numberOfLines = 1; // 0 is no limit
};

std::size_t LineLimit(const LabelState &state) {
    return state.numberOfLines > 0 ? static_cast<std::size_t>(state.numberOfLines) : kAllLines;
}

LineStyle StyleIn(const LabelState &state, double width) {
    return {FaceOf(state.font), state.breakMode == NSLineBreakByCharWrapping ? Wrapping::kCharacter : Wrapping::kWord,
            width};
}

double CeilToPixel(double length) {
    return std::ceil(length * ScreenScale()) / ScreenScale();
}

cg::Size SizeThatFits(const LabelState &state, cg::Size size) {
    const std::u16string text = UnitsOf(state.text);
    if (text.empty()) {
        return {};
    }
    // A label of one line asks for the width of its whole text, however narrow the size.
    const LineStyle style = StyleIn(state, state.numberOfLines == 1 ? 0 : size.width);
    const TextExtent extent = MeasureText(text, style, LineLimit(state));
    const double height = static_cast<double>(extent.lines) * MetricsOf(style.face).lineHeight;
    return {CeilToPixel(extent.width), CeilToPixel(height)};
}

double PlaceOf(NSTextAlignment alignment) {
    return alignment == NSTextAlignmentCenter ? 0.5 : alignment == NSTextAlignmentRight ? 1 : 0;
}

Truncation TruncationOf(NSLineBreakMode mode) {
    switch (mode) {
    case NSLineBreakByTruncatingHead:
        return Truncation::kHead;
    case NSLineBreakByTruncatingMiddle:
        return Truncation::kMiddle;
    case NSLineBreakByTruncatingTail:
        return Truncation::kTail;
    default:
        return Truncation::kNone;
    }
}

/// What the last visible line shows when the text goes on: the rest of its paragraph, which is then shortened or
/// clipped. When only later paragraphs are missing, it ends with an ellipsis. Wrapping modes show just the line.
std::u16string LastLine(std::u16string_view text, const TextLine &line, NSLineBreakMode mode) {
    if (mode == NSLineBreakByWordWrapping || mode == NSLineBreakByCharWrapping) {
        return std::u16string(text.substr(line.start, line.end - line.start));
    }
    const TextLine paragraph = BreakLines(text.substr(line.start), {{}, Wrapping::kNone, 0}, 1).front();
    std::u16string rest(text.substr(line.start, paragraph.end));
    if (mode != NSLineBreakByClipping && line.start + paragraph.end < text.size()) {
        rest += u'…';
    }
    return rest;
}

std::u16string_view WithoutTrailingSpace(std::u16string_view line) {
    const std::size_t last = line.find_last_not_of(u" \t\u3000");
    return last == std::u16string_view::npos ? line : line.substr(0, last + 1);
}

void DrawLabel(ui::View view, cairo_t *context) {
    const auto &state = StateOf<LabelState>(view);
    const std::u16string units = UnitsOf(state.text);
    const cg::Size size = PresentedValues(view).bounds.size;
    if (units.empty() || !(size.width > 0) || !(size.height > 0)) {
        return;
    }
    const std::u16string_view text = units;
    const LineStyle style = StyleIn(state, size.width);
    const FontMetrics metrics = MetricsOf(style.face);
    const auto fitting = static_cast<std::size_t>(std::max(1.0, std::floor(size.height / metrics.lineHeight)));
    const std::size_t limit = std::min(LineLimit(state), fitting);
    std::vector<TextLine> lines = BreakLines(text, style, limit + 1);
    const bool goesOn = lines.size() > limit;
    lines.resize(std::min(lines.size(), limit));

    cairo_rectangle(context, 0, 0, size.width, size.height);
    cairo_clip(context);
    SetPaint(context, state.textColor ? state.textColor.get() : ui::Color::labelColor());
    const double top = (size.height - static_cast<double>(lines.size()) * metrics.lineHeight) / 2;
    LineBox box{0, top + metrics.ascender, size.width, PlaceOf(state.alignment)};
    for (const TextLine &line : lines) {
        const bool last = &line == &lines.back();
        if (last && goesOn) {
            DrawLine(context, LastLine(text, line, state.breakMode), style.face, box, TruncationOf(state.breakMode));
        } else {
            const std::u16string_view whole = text.substr(line.start, line.end - line.start);
            DrawLine(context, last ? whole : WithoutTrailingSpace(whole), style.face, box);
        }
        box.baseline += metrics.lineHeight;
    }
}

std::uint64_t LabelDrawnFrom(ui::View view) {
    const auto &state = StateOf<LabelState>(view);
    Fingerprint print;
    print.Mix(UnitsOf(state.text));
    print.Mix(RgbaOf(state.textColor ? state.textColor.get() : ui::Color::labelColor()));
    const FontFace face = FaceOf(state.font);
    print.Mix(face.pointSize);
    for (const long number : {static_cast<long>(face.bold), static_cast<long>(state.alignment),
                              static_cast<long>(state.breakMode), state.numberOfLines}) {
        print.Mix(static_cast<std::uint64_t>(number));
    }
    return print.value();
}

} // namespace

void DefineLabel() {
    auto label = Class<LabelState>("UILabel", "UIView");
    label.Method<"initWithFrame:">([](ui::View self, cg::Rect frame) {
        const auto made = objc::SendSuper<"initWithFrame:", ui::View>(self, frame);
        ViewStateOf(made).userInteractionEnabled = false; // touches pass labels, as on the phone
        return made;
    });
    label.Property<"text", &LabelState::text>();
    label.PropertyOr<"textColor", &LabelState::textColor, &ui::Color::labelColor>();
    label.PropertyOr<"font", &LabelState::font, &DefaultFont>();
    label.Property<"textAlignment", &LabelState::alignment>();
    label.Property<"lineBreakMode", &LabelState::breakMode>();
    label.Property<"numberOfLines", &LabelState::numberOfLines>(
        [](LabelState &state) { state.numberOfLines = std::max(state.numberOfLines, 0L); });
    label.Method<"sizeThatFits:", &SizeThatFits>();
    label.Method<"intrinsicContentSize">([](ui::Label self) { return self.sizeThatFits({}); });
    RegisterDrawing("UILabel", &DrawLabel, &LabelDrawnFrom);
}

} // namespace sim
