#include "matrix/colors.hpp"

#include "apple/foundation/scanner.hpp"

namespace corvel {

ui::Color ColorFromHex(ns::String hex, double alpha) {
    if (hex.length() == 0) {
        return ui::Color::blackColor();
    }
    const ns::Scanner scanner = ns::Scanner::scannerWithString(hex);
    if (hex.characterAtIndex(0) == u'#') {
        scanner.setScanLocation(1);
    }
    unsigned value = 0;
    scanner.scanHexInt(&value);
    const auto component = [value](unsigned shift) { return ((value >> shift) & 0xff) / 255.0; };
    return ui::Color::colorWithRed(component(16), component(8), component(0), alpha);
}

} // namespace corvel
