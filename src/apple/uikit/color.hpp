#pragma once
// UIColor.

#include "apple/coregraphics/color.hpp"
#include "apple/foundation/object.hpp"

namespace ui {

struct Color : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIColor";

    static Color colorWithRed(double red, double green, double blue, double alpha) {
        return objc::SendClass<Color, "colorWithRed:green:blue:alpha:", Color>(red, green, blue, alpha);
    }
    static Color colorWithWhite(double white, double alpha) {
        return objc::SendClass<Color, "colorWithWhite:alpha:", Color>(white, alpha);
    }
    static Color clearColor() {
        return objc::SendClass<Color, "clearColor", Color>();
    }
    static Color blackColor() {
        return objc::SendClass<Color, "blackColor", Color>();
    }
    static Color whiteColor() {
        return objc::SendClass<Color, "whiteColor", Color>();
    }
    static Color redColor() {
        return objc::SendClass<Color, "redColor", Color>();
    }
    static Color grayColor() {
        return objc::SendClass<Color, "grayColor", Color>();
    }
    static Color orangeColor() {
        return objc::SendClass<Color, "orangeColor", Color>();
    }
    static Color systemPinkColor() {
        return objc::SendClass<Color, "systemPinkColor", Color>();
    }
    static Color systemRedColor() {
        return objc::SendClass<Color, "systemRedColor", Color>();
    }
    static Color systemGreenColor() {
        return objc::SendClass<Color, "systemGreenColor", Color>();
    }
    static Color systemOrangeColor() {
        return objc::SendClass<Color, "systemOrangeColor", Color>();
    }
    static Color systemBlueColor() {
        return objc::SendClass<Color, "systemBlueColor", Color>();
    }
    static Color systemGrayColor() {
        return objc::SendClass<Color, "systemGrayColor", Color>();
    }
    static Color labelColor() {
        return objc::SendClass<Color, "labelColor", Color>();
    }
    static Color secondaryLabelColor() {
        return objc::SendClass<Color, "secondaryLabelColor", Color>();
    }
    static Color systemBackgroundColor() {
        return objc::SendClass<Color, "systemBackgroundColor", Color>();
    }
    static Color secondarySystemBackgroundColor() {
        return objc::SendClass<Color, "secondarySystemBackgroundColor", Color>();
    }
    static Color separatorColor() {
        return objc::SendClass<Color, "separatorColor", Color>();
    }
    Color colorWithAlphaComponent(double alpha) const {
        return objc::Send<"colorWithAlphaComponent:", Color>(*this, alpha);
    }
    ::CGColor *CGColor() const {
        return objc::Send<"CGColor", ::CGColor *>(*this);
    }
};

} // namespace ui
