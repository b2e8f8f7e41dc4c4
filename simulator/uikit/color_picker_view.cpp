#include "uikit/color_picker_view.hpp"

#include "apple/uikit/button.hpp"
#include "apple/uikit/segmented_control.hpp"
#include "apple/uikit/slider.hpp"
#include "render/surface.hpp"
#include "runtime/native_class.hpp"
#include "runtime/utf16.hpp"
#include "uikit/application.hpp"
#include "uikit/array.hpp"
#include "uikit/color_palette.hpp"
#include "uikit/color_picker.hpp"
#include "uikit/drawing.hpp"
#include "uikit/event.hpp"
#include "uikit/touch.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <string>
#include <vector>

namespace sim {
namespace {

using ui::ColorPickerViewController;

// Points.
constexpr double kMargin = 16;
constexpr double kBarHeight = 56;
constexpr double kCloseSize = 30;
constexpr double kModesHeight = 32;
constexpr double kSampleSize = 80;
constexpr double kSampleRadius = 10;
constexpr double kSliderHeight = 34;
constexpr double kCaptionHeight = 24;
constexpr double kNumberWidth = 64;

enum Mode : long { kGrid, kSpectrum, kSliders };
constexpr std::size_t kChannels = 3;
constexpr double kMost = 255; // of a channel's slider
constexpr double kPercent = 100;

struct PickerView : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "_UIColorPickerView";
};

/// The grid or the spectrum.
struct Palette : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "_UIColorPickerPalette";
};

struct Sample : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "_UIColorPickerSample";
};

/// A slider whose track shows what its places make of the colour.
struct ColorSlider : ui::Slider {
    using ui::Slider::Slider;
    static constexpr const char *kClassName = "_UIColorPickerSlider";
};

struct CaptionedSlider {
    objc::Ref<ui::Label> caption;
    objc::Ref<ColorSlider> slider;
    objc::Ref<ui::Label> number;
};

struct PickerViewState {
    ColorPickerViewController picker; // not owned: it owns this view
    objc::Ref<ui::Label> title;
    objc::Ref<ui::Button> close;
    objc::Ref<ui::SegmentedControl> modes;
    objc::Ref<Palette> palette;
    std::vector<CaptionedSlider> channels;
    CaptionedSlider opacity;
    objc::Ref<ui::View> line;
    objc::Ref<Sample> sample;
};

PickerViewState &StateOfPicker(ui::View view) {
    return StateOf<PickerViewState>(view);
}

Mode ModeOf(const PickerViewState &state) {
    return static_cast<Mode>(state.modes->selectedSegmentIndex());
}

void Show(const CaptionedSlider &slider, double value, std::u16string_view unit) {
    slider.slider->setValue(static_cast<float>(value));
    const std::string digits = std::to_string(std::lround(value));
    slider.number->setText(StringOf(std::u16string(digits.begin(), digits.end()).append(unit)));
}

// Making.

CaptionedSlider AddSlider(PickerView self, ns::String caption, double most) {
    CaptionedSlider made{ns::New<ui::Label>(), ns::New<ColorSlider>(), ns::New<ui::Label>()};
    made.caption->setText(caption);
    made.caption->setFont(ui::Font::boldSystemFontOfSize(13));
    made.caption->setTextColor(ui::Color::secondaryLabelColor());
    made.slider->setMaximumValue(static_cast<float>(most));
    self.addSubview(made.caption);
    self.addSubview(made.slider);
    made.number->setTextAlignment(NSTextAlignmentCenter);
    made.number->setBackgroundColor(objc::SendClass<ui::Color, "tertiarySystemFillColor", ui::Color>());
    made.number->layer().setCornerRadius(8);
    self.addSubview(made.number);
    return made;
}

void AddBar(PickerView self, PickerViewState &state) {
    state.title = ns::New<ui::Label>();
    state.title->setText(u"颜色"_ns);
    state.title->setFont(ui::Font::boldSystemFontOfSize(17));
    state.title->setTextAlignment(NSTextAlignmentCenter);
    self.addSubview(state.title);
    state.close = ui::Button::buttonWithType(UIButtonTypeSystem);
    state.close->setTitle(u"✕"_ns, UIControlStateNormal);
    state.close->setTitleColor(ui::Color::secondaryLabelColor(), UIControlStateNormal);
    state.close->titleLabel().setFont(ui::Font::boldSystemFontOfSize(15));
    state.close->setBackgroundColor(ui::Color::systemGrayColor().colorWithAlphaComponent(0.2));
    state.close->layer().setCornerRadius(kCloseSize / 2);
    state.close->addTarget(state.picker, objc::Selector<"_finish">(), UIControlEventTouchUpInside);
    self.addSubview(state.close);
}

void Build(PickerView self, ColorPickerViewController picker) {
    PickerViewState &state = StateOfPicker(self);
    state.picker = picker;
    self.setBackgroundColor(ui::Color::secondarySystemBackgroundColor());
    AddBar(self, state);
    state.modes = objc::Ref<ui::SegmentedControl>::Adopt(ns::Alloc<ui::SegmentedControl>().initWithItems(
        MakeArray(std::vector<ns::String>{u"网格"_ns, u"光谱"_ns, u"滑块"_ns})));
    state.modes->setSelectedSegmentIndex(kGrid);
    state.modes->addTarget(self, objc::Selector<"_changeMode">(), UIControlEventValueChanged);
    self.addSubview(state.modes);
    state.palette = ns::New<Palette>();
    self.addSubview(state.palette);
    for (const ns::String channel : {u"红色"_ns, u"绿色"_ns, u"蓝色"_ns}) {
        state.channels.push_back(AddSlider(self, channel, kMost));
        state.channels.back().slider->addTarget(self, objc::Selector<"_mix">(), UIControlEventValueChanged);
    }
    state.opacity = AddSlider(self, u"不透明度"_ns, kPercent);
    state.opacity.slider->addTarget(self, objc::Selector<"_changeOpacity">(), UIControlEventValueChanged);
    state.line = ns::New<ui::View>();
    state.line->setBackgroundColor(ui::Color::separatorColor());
    self.addSubview(state.line);
    state.sample = ns::New<Sample>();
    LayerState &layer = LayerStateOf(state.sample->layer());
    layer.cornerRadius = kSampleRadius;
    layer.corners = Corners::kContinuous;
    layer.borderWidth = 0.5;
    layer.borderColor = ui::Color::separatorColor();
    self.addSubview(state.sample);
    ShowPickedColor(self);
}

// Layout: one below the other; on a screen that lies, the colours beside what belongs to them.

void Place(const CaptionedSlider &slider, cg::Point at, double width, bool hidden) {
    slider.caption->setHidden(hidden);
    slider.slider->setHidden(hidden);
    slider.caption->setFrame({at, {width, kCaptionHeight}});
    slider.number->setHidden(hidden);
    const double track = width - kMargin - kNumberWidth;
    at.y += kCaptionHeight;
    slider.slider->setFrame({at, {track, kSliderHeight}});
    slider.number->setFrame({{at.x + track + kMargin, at.y}, {kNumberWidth, kSliderHeight}});
}

void PlaceColors(const PickerViewState &state, cg::Rect room) {
    const bool mixes = ModeOf(state) == kSliders;
    state.palette->setHidden(mixes);
    state.palette->setFrame(room);
    double y = room.origin.y;
    for (const CaptionedSlider &channel : state.channels) {
        Place(channel, {room.origin.x, y}, room.size.width, !mixes);
        y += kCaptionHeight + kSliderHeight + kMargin;
    }
}

void PlaceRest(const PickerViewState &state, cg::Point at, double width) {
    const bool opaque = !SupportsAlpha(state.picker);
    Place(state.opacity, at, width, opaque);
    at.y += opaque ? 0 : kCaptionHeight + kSliderHeight + kMargin;
    state.line->setFrame({at, {width, 0.5}});
    state.sample->setFrame({{at.x, at.y + kMargin}, {kSampleSize, kSampleSize}});
}

void Layout(PickerView self) {
    const PickerViewState &state = StateOfPicker(self);
    const cg::Size size = self.bounds().size;
    state.title->setFrame({{0, 0}, {size.width, kBarHeight}});
    state.close->setFrame(
        {{size.width - kMargin - kCloseSize, (kBarHeight - kCloseSize) / 2}, {kCloseSize, kCloseSize}});
    const double width = size.width - 2 * kMargin;
    constexpr double kShape = static_cast<double>(kGridRows) / kGridColumns;
    if (size.height >= size.width) {
        state.modes->setFrame({{kMargin, kBarHeight}, {width, kModesHeight}});
        const double top = kBarHeight + kModesHeight + kMargin;
        PlaceColors(state, {{kMargin, top}, {width, width * kShape}});
        PlaceRest(state, {kMargin, top + width * kShape + kMargin}, width);
    } else {
        const double height = size.height - kBarHeight - kMargin;
        const double colors = std::min(height / kShape, width / 2);
        const double beside = kMargin + colors + kMargin;
        PlaceColors(state, {{kMargin, kBarHeight}, {colors, colors * kShape}});
        state.modes->setFrame({{beside, kBarHeight}, {width - beside, kModesHeight}});
        PlaceRest(state, {beside, kBarHeight + kModesHeight + kMargin}, width - beside);
    }
}

// Choosing.

/// The colour that is picked takes over the opacity set before.
void Pick(ui::View view, ui::Color color) {
    const PickerViewState &state = StateOfPicker(view);
    const double alpha = RgbaOf(state.picker.selectedColor()).a;
    ChooseColor(state.picker, alpha < 1 ? color.colorWithAlphaComponent(alpha) : color);
}

/// The colour under a finger is chosen when the finger is lifted.
void TouchesEnded(Palette self, ns::Set, ui::Event event) {
    const cg::Point point = FromScreen(self, TouchStateOf(EventStateOf(event).changed).location);
    const cg::Rect bounds = self.bounds();
    if (!Contains(bounds, point)) {
        return;
    }
    const double x = point.x / bounds.size.width;
    const double y = point.y / bounds.size.height;
    const ui::View view = self.superview();
    if (ModeOf(StateOfPicker(view)) == kSpectrum) {
        Pick(view, SpectrumColor(x, y));
    } else {
        Pick(view, GridColor(static_cast<int>(y * kGridRows), static_cast<int>(x * kGridColumns)));
    }
}

void Mix(PickerView self) {
    const PickerViewState &state = StateOfPicker(self);
    double parts[kChannels]{};
    for (std::size_t i = 0; i < kChannels; ++i) {
        parts[i] = std::round(static_cast<double>(state.channels[i].slider->value())) / kMost;
    }
    Pick(self, ui::Color::colorWithRed(parts[0], parts[1], parts[2], 1));
}

void ChangeOpacity(PickerView self) {
    const PickerViewState &state = StateOfPicker(self);
    const double alpha = std::round(static_cast<double>(state.opacity.slider->value())) / kPercent;
    ChooseColor(state.picker, state.picker.selectedColor().colorWithAlphaComponent(alpha));
}

// Drawing.

void DrawPalette(ui::View view, cairo_t *context) {
    const cg::Rect rect{{0, 0}, PresentedValues(view).bounds.size};
    if (!(rect.size.width > 0 && rect.size.height > 0)) {
        return;
    }
    if (ModeOf(StateOfPicker(view.superview())) == kSpectrum) {
        DrawSpectrum(context, rect);
    } else {
        DrawGrid(context, rect);
    }
}

/// What a transparent colour is shown on.
void DrawChecks(cairo_t *context, cg::Size size) {
    constexpr double kCheck = kSliderHeight / 4;
    SetPaint(context, Rgba{1, 1, 1, 1});
    cairo_paint(context);
    SetPaint(context, Rgba{0.8, 0.8, 0.8, 1});
    for (int row = 0; row * kCheck < size.height; ++row) {
        for (int column = row % 2; column * kCheck < size.width; column += 2) {
            cairo_rectangle(context, column * kCheck, row * kCheck, kCheck, kCheck);
        }
    }
    cairo_fill(context);
}

/// The colour at the slider's end: with none of its channel or opacity, or with all of it.
Rgba EndOf(const PickerViewState &state, ui::View slider, double end) {
    Rgba color = RgbaOf(state.picker.selectedColor());
    if (state.opacity.slider.get() == slider) {
        color.a = end;
        return color;
    }
    double *const parts[kChannels] = {&color.r, &color.g, &color.b};
    for (std::size_t i = 0; i < kChannels; ++i) {
        *parts[i] = state.channels[i].slider.get() == slider ? end : *parts[i];
    }
    return {color.r, color.g, color.b, 1};
}

void DrawColorSlider(ui::View view, cairo_t *context) {
    constexpr double kRing = 3;
    const cg::Size size = PresentedValues(view).bounds.size;
    const double radius = size.height / 2;
    const PickerViewState &state = StateOfPicker(view.superview());
    cairo_save(context);
    AddRounded(context, {{0, 0}, size}, radius);
    cairo_clip(context);
    DrawChecks(context, size);
    const Pattern track(cairo_pattern_create_linear(radius, 0, std::max(size.width - radius, radius), 0));
    for (const double end : {0.0, 1.0}) {
        const Rgba color = EndOf(state, view, end);
        cairo_pattern_add_color_stop_rgba(track.get(), end, color.r, color.g, color.b, color.a);
    }
    cairo_set_source(context, track.get());
    cairo_paint(context);
    cairo_restore(context);
    const auto thumb = objc::Send<"thumbRectForBounds:trackRect:value:", cg::Rect>(
        view, view.bounds(), objc::Send<"trackRectForBounds:", cg::Rect>(view, view.bounds()),
        objc::As<ui::Slider>(view).value());
    DrawKnob(context, thumb, thumb.size.height / 2, ui::Color::whiteColor());
    SetPaint(context, state.picker.selectedColor().colorWithAlphaComponent(1));
    FillRounded(context, Grown(thumb, -kRing), thumb.size.height / 2 - kRing);
}

} // namespace

void DefineColorPickerView() {
    auto view = Class<PickerViewState>(PickerView::kClassName, "UIView");
    view.Method<"layoutSubviews", &Layout>();
    view.Method<"_changeMode">([](PickerView self) { SetNeedsLayout(self); });
    view.Method<"_mix", &Mix>();
    view.Method<"_changeOpacity", &ChangeOpacity>();

    auto palette = Class(Palette::kClassName, "UIView");
    palette.Method<"touchesEnded:withEvent:", &TouchesEnded>();
    // A finger that goes over the colours does not draw the sheet along.
    palette.Method<"gestureRecognizerShouldBegin:">([](Palette, ui::GestureRecognizer) { return false; });
    RegisterDrawing(Palette::kClassName, &DrawPalette);
    Class(ColorSlider::kClassName, "UISlider");
    RegisterDrawing(ColorSlider::kClassName, &DrawColorSlider);
    Class(Sample::kClassName, "UIView");
}

objc::Ref<ui::View> MakeColorPickerView(ColorPickerViewController picker) {
    const auto view = ui::MakeView<PickerView>({{}, ScreenSize()});
    Build(view, picker);
    return {view.get()};
}

void ShowPickedColor(ui::View view) {
    const PickerViewState &state = StateOfPicker(view);
    const Rgba color = RgbaOf(state.picker.selectedColor());
    const double parts[kChannels] = {color.r, color.g, color.b};
    for (std::size_t i = 0; i < kChannels; ++i) {
        Show(state.channels[i], parts[i] * kMost, u"");
    }
    Show(state.opacity, color.a * kPercent, u"%");
    state.sample->setBackgroundColor(state.picker.selectedColor());
}

} // namespace sim
