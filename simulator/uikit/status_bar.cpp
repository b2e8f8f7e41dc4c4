#include "uikit/status_bar.hpp"

#include "render/text_layout.hpp"
#include "runtime/clock.hpp"
#include "uikit/application.hpp"
#include "uikit/drawing.hpp"
#include "uikit/screen.hpp"
#include "uikit/top_controller.hpp"

#include <cairo.h>
#include <cmath>
#include <numbers>
#include <string>

namespace sim {
namespace {

// Points. The bar of a phone without a home button stands beside its sensors.
constexpr double kLowBar = 20; // the height of the bar on phones with a home button
constexpr double kLowMargin = 6;
constexpr double kHighMargin = 28;
constexpr double kGlyphHeight = 11;
constexpr double kGlyphWidth = 17;
constexpr double kBatteryWidth = 24;
constexpr double kGap = 6;
constexpr int kSignalBars = 4;

/// The time of the day, which begins in the morning of the launch.
std::u16string TimeText() {
    constexpr long kFirstMinute = 9 * 60 + 41;
    const long minute = kFirstMinute + std::lround(std::floor(clock::Now() / 60));
    const std::string text =
        std::to_string(minute / 60 % 24) + (minute % 60 < 10 ? ":0" : ":") + std::to_string(minute % 60);
    return {text.begin(), text.end()};
}

void DrawTime(cairo_t *context, cg::Rect box, double size, double alignment) {
    const FontFace face{size, true};
    const FontMetrics metrics = MetricsOf(face);
    const double baseline = box.origin.y + (box.size.height - metrics.lineHeight) / 2 + metrics.ascender;
    DrawLine(context, TimeText(), face, {box.origin.x, baseline, box.size.width, alignment});
}

void DrawSignal(cairo_t *context, cg::Point origin) {
    constexpr double kBarWidth = 3;
    constexpr double kStep = (kGlyphWidth - kBarWidth) / (kSignalBars - 1);
    for (int i = 0; i < kSignalBars; ++i) {
        const double height = kGlyphHeight * (i + 1) / kSignalBars;
        FillRounded(context, {{origin.x + i * kStep, origin.y + kGlyphHeight - height}, {kBarWidth, height}}, 1);
    }
}

/// Two arcs above a dot, all about one point below.
void DrawWifi(cairo_t *context, cg::Point origin) {
    constexpr double kWidth = 1.9;                      // of an arc
    constexpr double kSpread = 0.26 * std::numbers::pi; // to either side
    constexpr double kUp = -0.5 * std::numbers::pi;
    const double x = origin.x + kGlyphWidth / 2;
    const double y = origin.y + kGlyphHeight + 0.5;
    cairo_set_line_width(context, kWidth);
    for (const double radius : {10.5, 6.9}) {
        cairo_new_sub_path(context);
        cairo_arc(context, x, y, radius, kUp - kSpread, kUp + kSpread);
        cairo_stroke(context);
    }
    cairo_move_to(context, x, y);
    cairo_arc(context, x, y, 4.2, kUp - kSpread, kUp + kSpread);
    cairo_close_path(context);
    cairo_fill(context);
}

void DrawBattery(cairo_t *context, cg::Point origin) {
    constexpr double kCase = kBatteryWidth - 3;
    constexpr double kWall = 1;
    StrokeRounded(context, {origin, {kCase, kGlyphHeight}}, 3, kWall);
    FillRounded(context, {{origin.x + 2 * kWall, origin.y + 2 * kWall}, {kCase - 4 * kWall, kGlyphHeight - 4 * kWall}},
                1.5);
    FillRounded(context, {{origin.x + kCase + kWall, origin.y + 4}, {1.5, kGlyphHeight - 8}}, 0.5);
}

} // namespace

StatusBar PresentStatusBar() {
    const ui::ViewController hides = TopController(Question::kStatusBarHidden);
    // https://developer.apple.com/documentation/uikit/uiviewcontroller/prefersstatusbarhidden
    if (IsLandscape() || (hides && objc::Send<"prefersStatusBarHidden", bool>(hides))) {
        return StatusBar::kHidden;
    }
    const ui::ViewController styles = TopController(Question::kStatusBarStyle);
    switch (styles ? objc::Send<"preferredStatusBarStyle", StatusBarStyle>(styles) : StatusBarStyle::kDefault) {
    case StatusBarStyle::kLightContent:
        return StatusBar::kLight;
    case StatusBarStyle::kDarkContent:
        return StatusBar::kDark;
    case StatusBarStyle::kDefault:
        break;
    }
    return IsDarkAppearance() ? StatusBar::kLight : StatusBar::kDark;
}

void DrawStatusBar(cairo_t *context) {
    const StatusBar look = PresentStatusBar();
    if (look == StatusBar::kHidden) {
        return;
    }
    const double width = ScreenSize().width;
    const double height = ScreenSafeArea().top;
    const bool low = height <= kLowBar;
    const double margin = low ? kLowMargin : kHighMargin;
    SetPaint(context, look == StatusBar::kLight ? Rgba{1, 1, 1, 1} : Rgba{0, 0, 0, 1});
    const double top = (height - kGlyphHeight) / 2;
    const cg::Point battery{width - margin - kBatteryWidth, top};
    DrawBattery(context, battery);
    const double step = kGap + kGlyphWidth;
    DrawSignal(context, {low ? margin : battery.x - 2 * step, top});
    DrawWifi(context, {low ? margin + step : battery.x - step, top});
    if (low) {
        DrawTime(context, {{}, {width, height}}, 12, 0.5);
    } else {
        DrawTime(context, {{margin, 0}, {width / 2, height}}, 16, 0);
    }
}

} // namespace sim
