#include "uikit/color_picker.hpp"

#include "apple/uikit/button.hpp"
#include "runtime/native_class.hpp"
#include "uikit/application.hpp"
#include "uikit/autoresizing.hpp"
#include "uikit/classes.hpp"
#include "uikit/control.hpp"
#include "uikit/drawing.hpp"
#include "uikit/target_action.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <cairo.h>
#include <cmath>

namespace sim {
namespace {

using ui::ColorPickerViewController;

// Points.
constexpr double kMargin = 16;
constexpr double kBarHeight = 56;
constexpr double kCloseSize = 30;
constexpr double kSampleSize = 60;

constexpr int kColumns = 12;
constexpr int kRows = 10;

struct PickerState {
    WeakObject delegate;
    objc::Ref<ui::Color> selected = ui::Color::blackColor();
    bool supportsAlpha = true;
};

struct PickerView : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "_UIColorPickerView";
};

/// The rows of colours and, below them, the chosen one.
struct Swatches : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "_UIColorPickerSwatches";
};

struct SwatchesState {
    ColorPickerViewController picker; // not owned: its view holds this one
};

// The sheet.

void LoadView(ColorPickerViewController self) {
    const cg::Size screen = ScreenSize();
    const auto view = ui::MakeView<PickerView>({{}, screen});
    view->setBackgroundColor(ui::Color::secondarySystemBackgroundColor());
    const auto title = ui::MakeView<ui::Label>({{0, 0}, {screen.width, kBarHeight}});
    title->setText(u"颜色"_ns);
    title->setFont(ui::Font::boldSystemFontOfSize(17));
    title->setTextAlignment(NSTextAlignmentCenter);
    view->addSubview(title);
    const auto close = ui::Button::buttonWithType(UIButtonTypeSystem);
    close.setFrame({{screen.width - kMargin - kCloseSize, (kBarHeight - kCloseSize) / 2}, {kCloseSize, kCloseSize}});
    close.setTitle(u"✕"_ns, UIControlStateNormal);
    close.setTitleColor(ui::Color::secondaryLabelColor(), UIControlStateNormal);
    close.setBackgroundColor(ui::Color::systemGrayColor().colorWithAlphaComponent(0.2));
    close.layer().setCornerRadius(kCloseSize / 2);
    close.addTarget(self, objc::Selector<"_finish">(), UIControlEventTouchUpInside);
    view->addSubview(close);
    // On a screen that turns the bar follows the width; the swatches keep theirs, with which their rows fit the height
    // of a screen that lies too.
    ViewStateOf(title).autoresizingMask = UIViewAutoresizingFlexibleWidth;
    ViewStateOf(close).autoresizingMask = UIViewAutoresizingFlexibleLeftMargin;
    const double width = std::min(screen.width, screen.height) - 2 * kMargin;
    const auto swatches = ui::MakeView<Swatches>({{kMargin, kBarHeight}, {width, width + kSampleSize}});
    StateOf<SwatchesState>(swatches).picker = self;
    view->addSubview(swatches);
    objc::Send<"setView:", void>(self, view.get());
}

/// Sends the delegate a message that it may leave unimplemented.
template <objc::FixedString Name> void TellDelegate(ColorPickerViewController picker) {
    const objc::Ref<ns::Object> delegate = StateOf<PickerState>(picker).delegate.Lock();
    if (delegate->respondsToSelector(objc::Selector<Name>())) {
        objc::Send<Name, void>(delegate.get(), picker);
    }
}

/// The user is done, by ✕; who swipes the sheet down is not: the delegate is told as the sheet starts to go.
/// https://developer.apple.com/documentation/uikit/uicolorpickerviewcontrollerdelegate
void Finish(ColorPickerViewController self) {
    self.dismissViewControllerAnimated(true, nullptr);
    TellDelegate<"colorPickerViewControllerDidFinish:">(self);
}

/// The first row holds greys, of one component; below it hues go across and lightness goes down.
ui::Color SwatchAt(int row, int column) {
    const double across = static_cast<double>(column) / (kColumns - 1);
    if (row == 0) {
        return ui::Color::colorWithWhite(1 - across, 1);
    }
    const double lightness = 0.1 + 0.8 * (row - 1) / (kRows - 2);
    const double strength = 1 - std::abs(2 * lightness - 1);
    const auto part = [&](double shift) {
        const double place = std::fmod(static_cast<double>(column) / kColumns + shift, 1.0);
        const double wave = std::clamp(std::abs(place * 6 - 3) - 1, 0.0, 1.0);
        return lightness + strength * (wave - 0.5);
    };
    return ui::Color::colorWithRed(part(0), part(2.0 / 3), part(1.0 / 3), 1);
}

/// The colour under a finger is chosen when the finger is lifted.
void TouchesEnded(Swatches self, ns::Set, ui::Event event) {
    const cg::Point point = FromScreen(self, TouchStateOf(EventStateOf(event).changed).location);
    const double cell = self.bounds().size.width / kColumns;
    const double row = std::floor(point.y / cell);
    const double column = std::floor(point.x / cell);
    if (row >= 0 && row < kRows && column >= 0 && column < kColumns) {
        ChooseColor(StateOf<SwatchesState>(self).picker, SwatchAt(static_cast<int>(row), static_cast<int>(column)));
    }
}

void DrawSwatches(ui::View view, cairo_t *context) {
    const double cell = PresentedValues(view).bounds.size.width / kColumns;
    for (int row = 0; row < kRows; ++row) {
        for (int column = 0; column < kColumns; ++column) {
            SetPaint(context, SwatchAt(row, column));
            FillRounded(context, {{column * cell, row * cell}, {cell, cell}}, 0);
        }
    }
    const cg::Rect sample{{0, kRows * cell + kMargin}, {kSampleSize, kSampleSize}};
    constexpr double kRadius = 8;
    SetPaint(context, StateOf<PickerState>(StateOf<SwatchesState>(view).picker).selected);
    FillRounded(context, sample, kRadius);
    SetPaint(context, ui::Color::separatorColor());
    StrokeRounded(context, sample, kRadius, 1);
}

} // namespace

void DefineColorPicker() {
    auto picker = Class<PickerState>("UIColorPickerViewController", "UIViewController");
    picker.Property<"delegate", &PickerState::delegate>();
    picker.Property<"selectedColor", &PickerState::selected>();
    picker.Property<"supportsAlpha", &PickerState::supportsAlpha>();
    picker.Method<"loadView", &LoadView>();
    picker.Method<"_finish", &Finish>();

    Class(PickerView::kClassName, "UIView");
    auto swatches = Class<SwatchesState>(Swatches::kClassName, "UIView");
    swatches.Method<"touchesEnded:withEvent:", &TouchesEnded>();
    // A finger that goes over the colours does not draw the sheet along.
    swatches.Method<"gestureRecognizerShouldBegin:">([](Swatches, ui::GestureRecognizer) { return false; });
    RegisterDrawing(Swatches::kClassName, &DrawSwatches);
}

ColorPickerViewController PresentedColorPicker() {
    for (const ui::Window window : WindowsFrontToBack()) {
        for (ui::ViewController controller = window.rootViewController(); controller;
             controller = controller.presentedViewController()) {
            if (controller.isKindOfClass(objc::ClassOf<ColorPickerViewController>())) {
                return objc::As<ColorPickerViewController>(controller);
            }
        }
    }
    return {};
}

void ChooseColor(ColorPickerViewController picker, ui::Color color) {
    StateOf<PickerState>(picker).selected = color;
    TellDelegate<"colorPickerViewControllerDidSelectColor:">(picker);
}

} // namespace sim
