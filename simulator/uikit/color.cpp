#include "uikit/color.hpp"

#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"

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

constexpr double UnitInterval(double value) {
    return value > 0 ? std::min(value, 1.0) : 0; // NaN gives 0 too
}

constexpr ::CGColor White(double white, double alpha = 1) {
    return {2, {white, UnitInterval(alpha)}};
}

constexpr ::CGColor Rgb(double red, double green, double blue, double alpha = 1) {
    return {4, {red, green, blue, UnitInterval(alpha)}};
}

constexpr ::CGColor Hex(std::uint32_t rgb, double alpha = 1) {
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

::CGColor &Current(ui::Color color) {
    auto &state = StateOf<ColorState>(color);
    return darkAppearance ? state.dark : state.light;
}

objc::Ref<ui::Color> MakeColor(const ::CGColor &light, const ::CGColor &dark) {
    objc::Ref<ui::Color> color = ns::New<ui::Color>();
    StateOf<ColorState>(color) = {light, dark};
    return color;
}

objc::Ref<ui::Color> Plain(const ::CGColor &color) {
    return MakeColor(color, color);
}

bool GetRed(ui::Color self, double *red, double *green, double *blue, double *alpha) {
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

bool IsEqual(const ColorState &left, ns::Object other) {
    if (!other.isKindOfClass(objc::ClassOf<ui::Color>())) {
        return false;
    }
    const auto &right = StateOf<ColorState>(other);
    return left.light == right.light && left.dark == right.dark;
}

unsigned long Hash(const ColorState &state) {
    unsigned long hash = 0;
    for (const double component : state.light.components) {
        hash = hash * 31 + std::hash<double>{}(component);
    }
    return hash;
}

void DefineMaking(Class<ColorState> &color) {
    color.ClassMethod<"colorWithRed:green:blue:alpha:">(
        [](ui::Color, double red, double green, double blue, double alpha) {
            return Plain(Rgb(red, green, blue, alpha));
        });
    color.ClassMethod<"colorWithWhite:alpha:">(
        [](ui::Color, double white, double alpha) { return Plain(White(white, alpha)); });
    color.ClassMethod<"colorWithCGColor:">(
        [](ui::Color, ::CGColor *same) { return same != nullptr ? Plain(*same) : nullptr; });
    color.Method<"colorWithAlphaComponent:">([](const ColorState &state, double alpha) {
        return MakeColor(WithAlpha(state.light, alpha), WithAlpha(state.dark, alpha));
    });
}

/// A named colour. As in UIKit, it is one object that lives as long as the process.
template <objc::FixedString Name, ::CGColor Light, ::CGColor Dark = Light> void DefineNamed(Class<ColorState> &color) {
    color.ClassMethod<Name>([](ui::Color) -> ui::Color {
        static const auto named = MakeColor(Light, Dark);
        return named;
    });
}

void DefinePlainColors(Class<ColorState> &color) {
    DefineNamed<"clearColor", White(0, 0)>(color);
    DefineNamed<"blackColor", White(0)>(color);
    DefineNamed<"darkGrayColor", White(1.0 / 3)>(color);
    DefineNamed<"grayColor", White(0.5)>(color);
    DefineNamed<"lightGrayColor", White(2.0 / 3)>(color);
    DefineNamed<"whiteColor", White(1)>(color);
    DefineNamed<"darkTextColor", White(0)>(color);
    DefineNamed<"lightTextColor", White(1, 0.6)>(color);
    DefineNamed<"redColor", Rgb(1, 0, 0)>(color);
    DefineNamed<"greenColor", Rgb(0, 1, 0)>(color);
    DefineNamed<"blueColor", Rgb(0, 0, 1)>(color);
    DefineNamed<"cyanColor", Rgb(0, 1, 1)>(color);
    DefineNamed<"magentaColor", Rgb(1, 0, 1)>(color);
    DefineNamed<"yellowColor", Rgb(1, 1, 0)>(color);
    DefineNamed<"orangeColor", Rgb(1, 0.5, 0)>(color);
    DefineNamed<"purpleColor", Rgb(0.5, 0, 0.5)>(color);
    DefineNamed<"brownColor", Rgb(0.6, 0.4, 0.2)>(color);
}

// The light appearance's colour first, then the dark one's.

void DefineSystemColors(Class<ColorState> &color) {
    DefineNamed<"systemRedColor", Hex(0xFF3B30), Hex(0xFF453A)>(color);
    DefineNamed<"systemOrangeColor", Hex(0xFF9500), Hex(0xFF9F0A)>(color);
    DefineNamed<"systemYellowColor", Hex(0xFFCC00), Hex(0xFFD60A)>(color);
    DefineNamed<"systemGreenColor", Hex(0x34C759), Hex(0x30D158)>(color);
    DefineNamed<"systemMintColor", Hex(0x00C7BE), Hex(0x63E6E2)>(color);
    DefineNamed<"systemTealColor", Hex(0x30B0C7), Hex(0x40C8E0)>(color);
    DefineNamed<"systemCyanColor", Hex(0x32ADE6), Hex(0x64D2FF)>(color);
    DefineNamed<"systemBlueColor", Hex(0x007AFF), Hex(0x0A84FF)>(color);
    DefineNamed<"systemIndigoColor", Hex(0x5856D6), Hex(0x5E5CE6)>(color);
    DefineNamed<"systemPurpleColor", Hex(0xAF52DE), Hex(0xBF5AF2)>(color);
    DefineNamed<"systemPinkColor", Hex(0xFF2D55), Hex(0xFF375F)>(color);
    DefineNamed<"systemBrownColor", Hex(0xA2845E), Hex(0xAC8E68)>(color);
    DefineNamed<"systemGrayColor", Hex(0x8E8E93)>(color);
    DefineNamed<"systemGray2Color", Hex(0xAEAEB2), Hex(0x636366)>(color);
    DefineNamed<"systemGray3Color", Hex(0xC7C7CC), Hex(0x48484A)>(color);
    DefineNamed<"systemGray4Color", Hex(0xD1D1D6), Hex(0x3A3A3C)>(color);
    DefineNamed<"systemGray5Color", Hex(0xE5E5EA), Hex(0x2C2C2E)>(color);
    DefineNamed<"systemGray6Color", Hex(0xF2F2F7), Hex(0x1C1C1E)>(color);
    DefineNamed<"tintColor", Hex(0x007AFF), Hex(0x0A84FF)>(color);
    DefineNamed<"linkColor", Hex(0x007AFF), Hex(0x0984FF)>(color);
}

void DefineTextColors(Class<ColorState> &color) {
    DefineNamed<"labelColor", Hex(0x000000), Hex(0xFFFFFF)>(color);
    DefineNamed<"secondaryLabelColor", Hex(0x3C3C43, 0.6), Hex(0xEBEBF5, 0.6)>(color);
    DefineNamed<"tertiaryLabelColor", Hex(0x3C3C43, 0.3), Hex(0xEBEBF5, 0.3)>(color);
    DefineNamed<"quaternaryLabelColor", Hex(0x3C3C43, 0.18), Hex(0xEBEBF5, 0.16)>(color);
    DefineNamed<"placeholderTextColor", Hex(0x3C3C43, 0.3), Hex(0xEBEBF5, 0.3)>(color);
    DefineNamed<"separatorColor", Hex(0x3C3C43, 0.29), Hex(0x545458, 0.6)>(color);
    DefineNamed<"opaqueSeparatorColor", Hex(0xC6C6C8), Hex(0x38383A)>(color);
}

void DefineGrounds(Class<ColorState> &color) {
    DefineNamed<"systemFillColor", Hex(0x787880, 0.2), Hex(0x787880, 0.36)>(color);
    DefineNamed<"secondarySystemFillColor", Hex(0x787880, 0.16), Hex(0x787880, 0.32)>(color);
    DefineNamed<"tertiarySystemFillColor", Hex(0x767680, 0.12), Hex(0x767680, 0.24)>(color);
    DefineNamed<"quaternarySystemFillColor", Hex(0x747480, 0.08), Hex(0x767680, 0.18)>(color);
    DefineNamed<"systemBackgroundColor", Hex(0xFFFFFF), Hex(0x000000)>(color);
    DefineNamed<"secondarySystemBackgroundColor", Hex(0xF2F2F7), Hex(0x1C1C1E)>(color);
    DefineNamed<"tertiarySystemBackgroundColor", Hex(0xFFFFFF), Hex(0x2C2C2E)>(color);
    DefineNamed<"systemGroupedBackgroundColor", Hex(0xF2F2F7), Hex(0x000000)>(color);
    DefineNamed<"secondarySystemGroupedBackgroundColor", Hex(0xFFFFFF), Hex(0x1C1C1E)>(color);
    DefineNamed<"tertiarySystemGroupedBackgroundColor", Hex(0xF2F2F7), Hex(0x2C2C2E)>(color);
}

} // namespace

void DefineColor() {
    auto color = Class<ColorState>("UIColor", "NSObject");
    DefineMaking(color);
    color.Method<"CGColor">([](ui::Color self) { return &Current(self); });
    color.Method<"getRed:green:blue:alpha:", &GetRed>();
    color.Method<"isEqual:", &IsEqual>();
    color.Method<"hash", &Hash>();
    DefinePlainColors(color);
    DefineSystemColors(color);
    DefineTextColors(color);
    DefineGrounds(color);
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
