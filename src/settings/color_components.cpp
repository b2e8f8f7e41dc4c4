#include "settings/color_components.hpp"

#include <cmath>

namespace corvel {
namespace {

struct Components {
    double red = 1;
    double green = 1;
    double blue = 1;
};

/// Into 0 to 1; what is no number becomes 0.
double Clamped(double component) {
    if (!(component > 0)) {
        return 0;
    }
    return component < 1 ? component : 1;
}

/// White when the colour has no such components.
Components ComponentsOf(ui::Color color) {
    CGColor *const source = color.CGColor();
    const double *const values = CGColorGetComponents(source);
    const unsigned long count = values != nullptr ? CGColorGetNumberOfComponents(source) : 0;
    if (count < 2) {
        return {};
    }
    if (count == 2) { // grey and alpha
        const double grey = Clamped(values[0]);
        return {grey, grey, grey};
    }
    return {Clamped(values[0]), Clamped(values[1]), Clamped(values[2])};
}

objc::ArgumentSlot Byte(double component) {
    return static_cast<objc::ArgumentSlot>(std::lround(component * 255));
}

} // namespace

objc::Ref<ns::String> HexText(ui::Color color) {
    const Components components = ComponentsOf(color);
    const objc::ArgumentSlot arguments[] = {Byte(components.red), Byte(components.green), Byte(components.blue)};
    return ns::Formatted("#%02lX%02lX%02lX"_ns, arguments);
}

bool IsBright(ui::Color color) {
    const Components components = ComponentsOf(color);
    // How strongly the eye takes each of the three.
    return 0.299 * components.red + 0.587 * components.green + 0.114 * components.blue > 0.5;
}

} // namespace corvel
