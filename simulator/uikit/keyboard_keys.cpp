#include "uikit/keyboard_keys.hpp"

#include "apple/uikit/text_field.hpp"
#include "render/text_layout.hpp"
#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"
#include "uikit/drawing.hpp"
#include "uikit/screen.hpp"
#include "uikit/view_state.hpp"

#include <algorithm>
#include <cairo.h>

namespace sim {
namespace {

constexpr double kKeyGap = 6;
constexpr double kRowGap = 11;
constexpr double kMargin = 3;
constexpr double kTop = 6; // at least; what is left above the keys is for suggestions
constexpr double kTallestRow = 44;
constexpr double kBelowKeys = 4;    // points without keys at the bottom,
constexpr double kKeyboardBar = 38; // more where the keyboard has a bar of its own: upright, without a home button
constexpr double kKeyRadius = 5;
constexpr int kRows = 4;
constexpr double kMostKeys = 10; // in a row; its keys are as wide as the room allows
constexpr int kPadColumns = 3;

bool numberPad = false;

struct Look {
    Rgba background;
    Rgba letterKey;
    Rgba otherKey;
    Rgba text;
};

Look PresentLook() {
    return IsDarkAppearance() ? Look{{0.17, 0.17, 0.18, 1}, {0.42, 0.42, 0.43, 1}, {0.27, 0.27, 0.28, 1}, {1, 1, 1, 1}}
                              : Look{{0.82, 0.83, 0.85, 1}, {1, 1, 1, 1}, {0.67, 0.7, 0.74, 1}, {0, 0, 0, 1}};
}

/// The points without keys at the bottom.
double BelowKeys() {
    const double safe = ScreenSafeArea().bottom;
    return kBelowKeys + safe + (safe > 0 && !IsLandscape() ? kKeyboardBar : 0);
}

class Keys {
  public:
    Keys(cairo_t *context, cg::Size size)
        : context_(context), look_(PresentLook()),
          keyWidth_((size.width - 2 * kMargin - (kMostKeys - 1) * kKeyGap) / kMostKeys), width_(size.width),
          bottom_(size.height - BelowKeys()),
          rowHeight_(std::min((bottom_ - kTop - (kRows - 1) * kRowGap) / kRows, kTallestRow)) {}

    void Draw(double height) {
        SetPaint(context_, look_.background);
        cairo_rectangle(context_, 0, 0, width_, height);
        cairo_fill(context_);
        constexpr double kReadable = 12; // a keyboard that is too low shows no keys
        if (rowHeight_ < kReadable || keyWidth_ < kReadable) {
            return;
        }
        if (numberPad) {
            NumberPad();
        } else {
            LetterKeys();
        }
    }

  private:
    void LetterKeys() {
        Letters(u"QWERTYUIOP", 0);
        Letters(u"ASDFGHJKL", 1);
        Letters(u"ZXCVBNM", 2);
        const double side = keyWidth_ * 1.3;
        Key({kMargin, RowTop(2)}, side, u"⇧", look_.otherKey);
        Key({width_ - kMargin - side, RowTop(2)}, side, u"⌫", look_.otherKey);
        const double wide = keyWidth_ * 2.5;
        const double space = width_ - 2 * (kMargin + wide + kKeyGap);
        Key({kMargin, RowTop(3)}, wide, u"123", look_.otherKey);
        Key({kMargin + wide + kKeyGap, RowTop(3)}, space, u"空格", look_.letterKey);
        Key({width_ - kMargin - wide, RowTop(3)}, wide, u"换行", look_.otherKey);
    }

    void NumberPad() {
        const double width = (width_ - 2 * kMargin - (kPadColumns - 1) * kKeyGap) / kPadColumns;
        const auto key = [&](int column, int row, std::u16string_view text, Rgba color) {
            Key({kMargin + column * (width + kKeyGap), RowTop(row)}, width, text, color);
        };
        constexpr std::u16string_view kDigits = u"123456789";
        for (int i = 0; i < static_cast<int>(kDigits.size()); ++i) {
            key(i % kPadColumns, i / kPadColumns, kDigits.substr(static_cast<std::size_t>(i), 1), look_.letterKey);
        }
        key(1, 3, u"0", look_.letterKey);
        key(2, 3, u"⌫", look_.otherKey);
    }

    double RowTop(int row) const {
        return bottom_ - (kRows - row) * rowHeight_ - (kRows - 1 - row) * kRowGap;
    }

    /// A row of letters, centred.
    void Letters(std::u16string_view letters, int row) {
        const auto count = static_cast<double>(letters.size());
        double x = (width_ - count * keyWidth_ - (count - 1) * kKeyGap) / 2;
        for (std::size_t i = 0; i < letters.size(); ++i) {
            Key({x, RowTop(row)}, keyWidth_, letters.substr(i, 1), look_.letterKey);
            x += keyWidth_ + kKeyGap;
        }
    }

    void Key(cg::Point origin, double width, std::u16string_view text, Rgba color) {
        SetPaint(context_, color);
        FillRounded(context_, {origin, {width, rowHeight_}}, kKeyRadius);
        const FontFace face{text.size() == 1 ? 21.0 : 16.0, false};
        const FontMetrics metrics = MetricsOf(face);
        SetPaint(context_, look_.text);
        const double baseline = origin.y + (rowHeight_ - metrics.lineHeight) / 2 + metrics.ascender;
        DrawLine(context_, text, face, {origin.x, baseline, width, 0.5});
    }

    cairo_t *context_;
    Look look_;
    double keyWidth_;
    double width_;
    double bottom_;
    double rowHeight_;
};

void DrawKeys(ui::View view, cairo_t *context) {
    const cg::Size size = PresentedValues(view).bounds.size;
    Keys(context, size).Draw(size.height);
}

} // namespace

void DefineKeyboardKeys() {
    Class(kKeysClass, "UIView");
    RegisterDrawing(kKeysClass, &DrawKeys);
}

void ShowKeysFor(ui::Responder edited) {
    numberPad = IsNumberPad(edited);
}

bool IsNumberPad(ui::Responder edited) {
    const bool hasType = edited.respondsToSelector(objc::Selector<"keyboardType">());
    return hasType &&
           objc::Send<"keyboardType", UIKeyboardType>(objc::As<ui::TextInputTraits>(edited)) == UIKeyboardTypeNumberPad;
}

} // namespace sim
