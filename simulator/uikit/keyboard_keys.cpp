#include "uikit/keyboard_keys.hpp"

#include "apple/uikit/text_field.hpp"
#include "render/text_layout.hpp"
#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"
#include "uikit/drawing.hpp"
#include "uikit/key_icons.hpp"
#include "uikit/screen.hpp"
#include "uikit/view_state.hpp"

#include <algorithm>
#include <cairo.h>

namespace sim {
namespace {

constexpr double kKeyGap = 6;
constexpr double kRowGap = 11;
constexpr double kPadGap = 7; // between the rows of a number pad
constexpr double kMargin = 3;
constexpr double kTop = 6; // at least; what is left above the keys is for suggestions
constexpr double kTallestRow = 44;
constexpr double kTallestPadRow = 46;
constexpr double kBelowKeys = 4;    // points without keys at the bottom,
constexpr double kKeyboardBar = 38; // more where the keyboard has a bar of its own: upright, without a home button
constexpr double kKeyRadius = 5;
constexpr double kShadow = 1; // how far it lies below its key
constexpr int kRows = 4;
constexpr double kMostKeys = 10; // in a row; its keys are as wide as the room allows
constexpr int kPadColumns = 3;
constexpr double kLetterSize = 22;
constexpr double kDigitSize = 25;
constexpr double kWordSize = 16;
constexpr double kSuggestionSize = 19;
constexpr double kSubtitleSize = 10;

bool numberPad = false;

struct Look {
    Rgba background;
    Rgba letterKey;
    Rgba otherKey;
    Rgba text;
    Rgba icon; // of what has no key
    Rgba shadow;
};

Look PresentLook() {
    constexpr Rgba kBlack{0, 0, 0, 1};
    constexpr Rgba kWhite{1, 1, 1, 1};
    return IsDarkAppearance()
               ? Look{{0.165, 0.165, 0.17, 1}, {0.42, 0.42, 0.43, 1}, {0.275, 0.275, 0.285, 1}, kWhite, kWhite,
                      {0.07, 0.07, 0.07, 1}}
               : Look{{0.82, 0.827, 0.85, 1}, kWhite, {0.67, 0.69, 0.73, 1}, kBlack, {0.31, 0.33, 0.37, 1},
                      {0.53, 0.54, 0.555, 1}};
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
          keyWidth_((size.width - 2 * kMargin - (kMostKeys - 1) * kKeyGap) / kMostKeys), size_(size),
          bottom_(size.height - BelowKeys()), rowGap_(numberPad ? kPadGap : kRowGap),
          rowHeight_(
              std::min((bottom_ - kTop - (kRows - 1) * rowGap_) / kRows, numberPad ? kTallestPadRow : kTallestRow)) {}

    void Draw() {
        SetPaint(context_, look_.background);
        cairo_rectangle(context_, 0, 0, size_.width, size_.height);
        cairo_fill(context_);
        constexpr double kReadable = 12; // a keyboard that is too low shows no keys
        if (rowHeight_ < kReadable || keyWidth_ < kReadable) {
            return;
        }
        if (numberPad) {
            NumberPad();
        } else {
            LetterKeys();
            Suggestions();
            Bar();
        }
    }

  private:
    void LetterKeys() {
        Letters(u"QWERTYUIOP", 0);
        Letters(u"ASDFGHJKL", 1);
        Letters(u"ZXCVBNM", 2);
        const double side = keyWidth_ * 1.3;
        IconKey({{kMargin, RowTop(2)}, {side, rowHeight_}}, KeyIcon::kShift);
        IconKey({{size_.width - kMargin - side, RowTop(2)}, {side, rowHeight_}}, KeyIcon::kDelete);
        const double small = keyWidth_ * 1.25;
        const double wide = 2 * small + kKeyGap;
        const double space = size_.width - 2 * (kMargin + wide + kKeyGap);
        Key({{kMargin, RowTop(3)}, {small, rowHeight_}}, u"123", kWordSize, look_.otherKey);
        IconKey({{kMargin + small + kKeyGap, RowTop(3)}, {small, rowHeight_}}, KeyIcon::kFace);
        Key({{kMargin + wide + kKeyGap, RowTop(3)}, {space, rowHeight_}}, u"空格", kWordSize, look_.letterKey);
        Key({{size_.width - kMargin - wide, RowTop(3)}, {wide, rowHeight_}}, u"换行", kWordSize, look_.otherKey);
    }

    /// What an input method offers before anything is typed.
    void Suggestions() {
        constexpr std::u16string_view kOffered = u"我你好这在有是不";
        constexpr double kMore = 44; // points at the right for the arrow that shows more
        const double height = RowTop(0) - kTop;
        constexpr double kReadable = 24;
        if (height < kReadable) {
            return;
        }
        const double step = (size_.width - kMore) / static_cast<double>(kOffered.size());
        for (std::size_t i = 0; i < kOffered.size(); ++i) {
            Text({{static_cast<double>(i) * step, kTop / 2}, {step, height}}, kOffered.substr(i, 1), kSuggestionSize);
        }
        SetPaint(context_, look_.icon, 0.25);
        FillRounded(context_, {{size_.width - kMore, kTop / 2 + height / 4}, {0.5, height / 2}}, 0);
        SetPaint(context_, look_.icon);
        DrawKeyIcon(context_, {{size_.width - kMore, kTop / 2}, {kMore, height}}, KeyIcon::kMore);
    }

    /// The keyboard's own bar below the keys, where there is one.
    void Bar() {
        const double safe = ScreenSafeArea().bottom;
        if (BelowKeys() < kBelowKeys + safe + kKeyboardBar) {
            return;
        }
        constexpr double kSide = 60;
        const double top = bottom_ + kBelowKeys + (kKeyboardBar + safe - kSide) / 2 - kBelowKeys;
        SetPaint(context_, look_.icon);
        DrawKeyIcon(context_, {{kMargin, top}, {kSide, kSide}}, KeyIcon::kGlobe);
        DrawKeyIcon(context_, {{size_.width - kMargin - kSide, top}, {kSide, kSide}}, KeyIcon::kMicrophone);
    }

    void NumberPad() {
        const double width = (size_.width - 2 * kMargin - (kPadColumns - 1) * kKeyGap) / kPadColumns;
        const auto place = [&](int column, int row) {
            return cg::Rect{{kMargin + column * (width + kKeyGap), RowTop(row)}, {width, rowHeight_}};
        };
        constexpr std::u16string_view kDigits = u"123456789";
        constexpr std::u16string_view kLetters[] = {u"",    u"ABC",  u"DEF", u"GHI", u"JKL",
                                                    u"MNO", u"PQRS", u"TUV", u"WXYZ"};
        for (int i = 0; i < static_cast<int>(kDigits.size()); ++i) {
            const auto index = static_cast<std::size_t>(i);
            DigitKey(place(i % kPadColumns, i / kPadColumns), kDigits.substr(index, 1), kLetters[index]);
        }
        DigitKey(place(1, 3), u"0", u"");
        SetPaint(context_, look_.text);
        DrawKeyIcon(context_, place(2, 3), KeyIcon::kDelete);
    }

    double RowTop(int row) const {
        return bottom_ - (kRows - row) * rowHeight_ - (kRows - 1 - row) * rowGap_;
    }

    /// A row of letters, centred.
    void Letters(std::u16string_view letters, int row) {
        const auto count = static_cast<double>(letters.size());
        double x = (size_.width - count * keyWidth_ - (count - 1) * kKeyGap) / 2;
        for (std::size_t i = 0; i < letters.size(); ++i) {
            Key({{x, RowTop(row)}, {keyWidth_, rowHeight_}}, letters.substr(i, 1), kLetterSize, look_.letterKey);
            x += keyWidth_ + kKeyGap;
        }
    }

    void Cap(cg::Rect rect, Rgba color) {
        cg::Rect below = rect;
        below.origin.y += kShadow;
        SetPaint(context_, look_.shadow);
        FillRounded(context_, below, kKeyRadius);
        SetPaint(context_, color);
        FillRounded(context_, rect, kKeyRadius);
    }

    void Key(cg::Rect rect, std::u16string_view text, double size, Rgba color) {
        Cap(rect, color);
        Text(rect, text, size);
    }

    void IconKey(cg::Rect rect, KeyIcon icon) {
        Cap(rect, look_.otherKey);
        SetPaint(context_, look_.text);
        DrawKeyIcon(context_, rect, icon);
    }

    /// A digit with the letters of a telephone's key below it, where the key is high enough for both.
    void DigitKey(cg::Rect rect, std::u16string_view digit, std::u16string_view letters) {
        Cap(rect, look_.letterKey);
        const double both = MetricsOf({kDigitSize, false}).lineHeight + MetricsOf({kSubtitleSize, true}).capHeight;
        if (letters.empty() || rect.size.height < both) {
            Text(rect, digit, kDigitSize);
            return;
        }
        const double below = (rect.size.height - both) / 2 + MetricsOf({kSubtitleSize, true}).capHeight;
        Text({rect.origin, {rect.size.width, rect.size.height - below}}, digit, kDigitSize);
        constexpr double kSpread = 2; // points between the letters
        constexpr double kLetter = 7;
        const double step = kLetter + kSpread;
        double x = rect.origin.x + (rect.size.width - step * static_cast<double>(letters.size())) / 2;
        for (std::size_t i = 0; i < letters.size(); ++i, x += step) {
            const double baseline = rect.origin.y + rect.size.height - below / 2 - kSpread / 2;
            DrawLine(context_, letters.substr(i, 1), {kSubtitleSize, true}, {x, baseline, step, 0.5});
        }
    }

    void Text(cg::Rect rect, std::u16string_view text, double size) {
        const FontFace face{size, false};
        const FontMetrics metrics = MetricsOf(face);
        SetPaint(context_, look_.text);
        const double baseline = rect.origin.y + (rect.size.height - metrics.lineHeight) / 2 + metrics.ascender;
        DrawLine(context_, text, face, {rect.origin.x, baseline, rect.size.width, 0.5});
    }

    cairo_t *context_;
    Look look_;
    double keyWidth_;
    cg::Size size_;
    double bottom_;
    double rowGap_;
    double rowHeight_;
};

void DrawKeys(ui::View view, cairo_t *context) {
    Keys(context, PresentedValues(view).bounds.size).Draw();
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
