#include "uikit/color.hpp"

#include "runtime/autorelease.hpp"
#include "runtime/native_class.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>

/// A colour of one appearance: white and alpha, or red, green, blue and alpha.
struct CGColor {
    unsigned long count = 2;
    double components[4]{};

    friend bool operator==(const CGColor &, const CGColor &) = default;
};

namespace sim {
namespace {

struct ColorState {
    ::CGColor light;
    ::CGColor dark;
};

bool darkAppearance = false;

double UnitInterval(double value) {
    return value > 0 ? std::min(value, 1.0) : 0; // NaN gives 0 too
}

::CGColor White(double white, double alpha) {
    return {2, {white, UnitInterval(alpha)}};
}

::CGColor Rgb(double red, double green, double blue, double alpha) {
    return {4, {red, green, blue, UnitInterval(alpha)}};
}

::CGColor Hex(std::uint32_t rgb, double alpha) {
    return Rgb((rgb >> 16 & 0xFF) / 255.0, (rgb >> 8 & 0xFF) / 255.0, (rgb & 0xFF) / 255.0, alpha);
}

::CGColor WithAlpha(::CGColor color, double alpha) {
    color.components[color.count - 1] = UnitInterval(alpha);
    return color;
}

Rgba Resolve(const ::CGColor &color) {
    const double *c = color.components;
    return color.count == 2 ? Rgba{c[0], c[0], c[0], c[1]} : Rgba{c[0], c[1], c[2], c[3]};
}

ColorState &StateOfColor(ui::Color color) {
    return StateOf<ColorState>(color);
}

::CGColor &Current(ui::Color color) {
    ColorState &state = StateOfColor(color);
    return darkAppearance ? state.dark : state.light;
}

objc::Ref<ui::Color> MakeColor(const ::CGColor &light, const ::CGColor &dark) {
    objc::Ref<ui::Color> color = ns::New<ui::Color>();
    StateOfColor(color) = {light, dark};
    return color;
}

ui::Color Plain(const ::CGColor &color) {
    return Autoreleased(MakeColor(color, color));
}

ui::Color ColorWithRed(objc::Object, objc::SEL, double red, double green, double blue, double alpha) {
    return Plain(Rgb(red, green, blue, alpha));
}

ui::Color ColorWithWhite(objc::Object, objc::SEL, double white, double alpha) {
    return Plain(White(white, alpha));
}

ui::Color ColorWithCGColor(objc::Object, objc::SEL, ::CGColor *color) {
    return color != nullptr ? Plain(*color) : ui::Color{};
}

// The named colours are each one object that lives as long as the process, as UIKit's are.

template <double Value, double Opacity = 1.0> ui::Color NamedGrey(objc::Object, objc::SEL) {
    static const auto color = MakeColor(White(Value, Opacity), White(Value, Opacity));
    return color;
}

template <double Red, double Green, double Blue> ui::Color NamedRgb(objc::Object, objc::SEL) {
    static const auto color = MakeColor(Rgb(Red, Green, Blue, 1), Rgb(Red, Green, Blue, 1));
    return color;
}

template <std::uint32_t Light, std::uint32_t Dark, double LightAlpha = 1.0, double DarkAlpha = LightAlpha>
ui::Color Adaptive(objc::Object, objc::SEL) {
    static const auto color = MakeColor(Hex(Light, LightAlpha), Hex(Dark, DarkAlpha));
    return color;
}

ui::Color ColorWithAlphaComponent(ui::Color self, objc::SEL, double alpha) {
    const ColorState &state = StateOfColor(self);
    return Autoreleased(MakeColor(WithAlpha(state.light, alpha), WithAlpha(state.dark, alpha)));
}

::CGColor *CGColorOf(ui::Color self, objc::SEL) {
    return &Current(self);
}

bool GetRed(ui::Color self, objc::SEL, double *red, double *green, double *blue, double *alpha) {
    const Rgba color = Resolve(Current(self));
    const auto give = [](double *to, double value) {
        if (to != nullptr) {
            *to = value;
        }
    };
    give(red, color.r);
    give(green, color.g);
    give(blue, color.b);
    give(alpha, color.a);
    return true;
}

bool IsEqual(ui::Color self, objc::SEL, ns::Object other) {
    if (!other || !other.isKindOfClass(objc::ClassOf<ui::Color>())) {
        return false;
    }
    const ColorState &left = StateOfColor(self);
    const ColorState &right = StateOfColor(ui::Color{other.pointer});
    return left.light == right.light && left.dark == right.dark;
}

unsigned long Hash(ui::Color self, objc::SEL) {
    unsigned long hash = 0;
    for (const double component : StateOfColor(self).light.components) {
        hash = hash * 31 + std::hash<double>{}(component);
    }
    return hash;
}

} // namespace

void RegisterColor() {
    const objc::MethodEntry instanceMethods[] = {
        objc::MethodNamed<"colorWithAlphaComponent:", &ColorWithAlphaComponent>(),
        objc::MethodNamed<"CGColor", &CGColorOf>(),
        objc::MethodNamed<"getRed:green:blue:alpha:", &GetRed>(),
        objc::MethodNamed<"isEqual:", &IsEqual>(),
        objc::MethodNamed<"hash", &Hash>(),
    };
    const objc::MethodEntry classMethods[] = {
        objc::MethodNamed<"colorWithRed:green:blue:alpha:", &ColorWithRed>(),
        objc::MethodNamed<"colorWithWhite:alpha:", &ColorWithWhite>(),
        objc::MethodNamed<"colorWithCGColor:", &ColorWithCGColor>(),
        objc::MethodNamed<"clearColor", &NamedGrey<0.0, 0.0>>(),
        objc::MethodNamed<"blackColor", &NamedGrey<0.0>>(),
        objc::MethodNamed<"darkGrayColor", &NamedGrey<1.0 / 3>>(),
        objc::MethodNamed<"grayColor", &NamedGrey<0.5>>(),
        objc::MethodNamed<"lightGrayColor", &NamedGrey<2.0 / 3>>(),
        objc::MethodNamed<"whiteColor", &NamedGrey<1.0>>(),
        objc::MethodNamed<"darkTextColor", &NamedGrey<0.0>>(),
        objc::MethodNamed<"lightTextColor", &NamedGrey<1.0, 0.6>>(),
        objc::MethodNamed<"redColor", &NamedRgb<1.0, 0.0, 0.0>>(),
        objc::MethodNamed<"greenColor", &NamedRgb<0.0, 1.0, 0.0>>(),
        objc::MethodNamed<"blueColor", &NamedRgb<0.0, 0.0, 1.0>>(),
        objc::MethodNamed<"cyanColor", &NamedRgb<0.0, 1.0, 1.0>>(),
        objc::MethodNamed<"magentaColor", &NamedRgb<1.0, 0.0, 1.0>>(),
        objc::MethodNamed<"yellowColor", &NamedRgb<1.0, 1.0, 0.0>>(),
        objc::MethodNamed<"orangeColor", &NamedRgb<1.0, 0.5, 0.0>>(),
        objc::MethodNamed<"purpleColor", &NamedRgb<0.5, 0.0, 0.5>>(),
        objc::MethodNamed<"brownColor", &NamedRgb<0.6, 0.4, 0.2>>(),
        objc::MethodNamed<"systemRedColor", &Adaptive<0xFF3B30, 0xFF453A>>(),
        objc::MethodNamed<"systemOrangeColor", &Adaptive<0xFF9500, 0xFF9F0A>>(),
        objc::MethodNamed<"systemYellowColor", &Adaptive<0xFFCC00, 0xFFD60A>>(),
        objc::MethodNamed<"systemGreenColor", &Adaptive<0x34C759, 0x30D158>>(),
        objc::MethodNamed<"systemMintColor", &Adaptive<0x00C7BE, 0x63E6E2>>(),
        objc::MethodNamed<"systemTealColor", &Adaptive<0x30B0C7, 0x40C8E0>>(),
        objc::MethodNamed<"systemCyanColor", &Adaptive<0x32ADE6, 0x64D2FF>>(),
        objc::MethodNamed<"systemBlueColor", &Adaptive<0x007AFF, 0x0A84FF>>(),
        objc::MethodNamed<"systemIndigoColor", &Adaptive<0x5856D6, 0x5E5CE6>>(),
        objc::MethodNamed<"systemPurpleColor", &Adaptive<0xAF52DE, 0xBF5AF2>>(),
        objc::MethodNamed<"systemPinkColor", &Adaptive<0xFF2D55, 0xFF375F>>(),
        objc::MethodNamed<"systemBrownColor", &Adaptive<0xA2845E, 0xAC8E68>>(),
        objc::MethodNamed<"systemGrayColor", &Adaptive<0x8E8E93, 0x8E8E93>>(),
        objc::MethodNamed<"systemGray2Color", &Adaptive<0xAEAEB2, 0x636366>>(),
        objc::MethodNamed<"systemGray3Color", &Adaptive<0xC7C7CC, 0x48484A>>(),
        objc::MethodNamed<"systemGray4Color", &Adaptive<0xD1D1D6, 0x3A3A3C>>(),
        objc::MethodNamed<"systemGray5Color", &Adaptive<0xE5E5EA, 0x2C2C2E>>(),
        objc::MethodNamed<"systemGray6Color", &Adaptive<0xF2F2F7, 0x1C1C1E>>(),
        objc::MethodNamed<"tintColor", &Adaptive<0x007AFF, 0x0A84FF>>(),
        objc::MethodNamed<"linkColor", &Adaptive<0x007AFF, 0x0984FF>>(),
        objc::MethodNamed<"labelColor", &Adaptive<0x000000, 0xFFFFFF>>(),
        objc::MethodNamed<"secondaryLabelColor", &Adaptive<0x3C3C43, 0xEBEBF5, 0.6>>(),
        objc::MethodNamed<"tertiaryLabelColor", &Adaptive<0x3C3C43, 0xEBEBF5, 0.3>>(),
        objc::MethodNamed<"quaternaryLabelColor", &Adaptive<0x3C3C43, 0xEBEBF5, 0.18, 0.16>>(),
        objc::MethodNamed<"placeholderTextColor", &Adaptive<0x3C3C43, 0xEBEBF5, 0.3>>(),
        objc::MethodNamed<"separatorColor", &Adaptive<0x3C3C43, 0x545458, 0.29, 0.6>>(),
        objc::MethodNamed<"opaqueSeparatorColor", &Adaptive<0xC6C6C8, 0x38383A>>(),
        objc::MethodNamed<"systemFillColor", &Adaptive<0x787880, 0x787880, 0.2, 0.36>>(),
        objc::MethodNamed<"secondarySystemFillColor", &Adaptive<0x787880, 0x787880, 0.16, 0.32>>(),
        objc::MethodNamed<"tertiarySystemFillColor", &Adaptive<0x767680, 0x767680, 0.12, 0.24>>(),
        objc::MethodNamed<"quaternarySystemFillColor", &Adaptive<0x747480, 0x767680, 0.08, 0.18>>(),
        objc::MethodNamed<"systemBackgroundColor", &Adaptive<0xFFFFFF, 0x000000>>(),
        objc::MethodNamed<"secondarySystemBackgroundColor", &Adaptive<0xF2F2F7, 0x1C1C1E>>(),
        objc::MethodNamed<"tertiarySystemBackgroundColor", &Adaptive<0xFFFFFF, 0x2C2C2E>>(),
        objc::MethodNamed<"systemGroupedBackgroundColor", &Adaptive<0xF2F2F7, 0x000000>>(),
        objc::MethodNamed<"secondarySystemGroupedBackgroundColor", &Adaptive<0xFFFFFF, 0x1C1C1E>>(),
        objc::MethodNamed<"tertiarySystemGroupedBackgroundColor", &Adaptive<0xF2F2F7, 0x2C2C2E>>(),
    };
    RegisterClassWithState<ColorState>("UIColor", "NSObject", instanceMethods, classMethods);
}

Rgba RgbaOf(ui::Color color) {
    if (!color) {
        return {};
    }
    const Rgba resolved = Resolve(Current(color));
    return {UnitInterval(resolved.r), UnitInterval(resolved.g), UnitInterval(resolved.b), resolved.a};
}

void SetDarkAppearance(bool dark) {
    darkAppearance = dark;
}

bool IsDarkAppearance() {
    return darkAppearance;
}

} // namespace sim

extern "C" {

const double *CGColorGetComponents(CGColor *color) {
    return color != nullptr ? color->components : nullptr;
}

unsigned long CGColorGetNumberOfComponents(CGColor *color) {
    return color != nullptr ? color->count : 0;
}
}
