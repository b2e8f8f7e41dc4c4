#pragma once
// CALayer.

#include "apple/coregraphics/color.hpp"
#include "apple/coregraphics/geometry.hpp"
#include "apple/foundation/object.hpp"

namespace ca {

struct Layer : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "CALayer";

    void setCornerRadius(double radius) const {
        objc::Send<"setCornerRadius:", void>(*this, radius);
    }
    void setBorderWidth(double width) const {
        objc::Send<"setBorderWidth:", void>(*this, width);
    }
    void setBorderColor(CGColor *color) const {
        objc::Send<"setBorderColor:", void>(*this, color);
    }
    void setZPosition(double position) const {
        objc::Send<"setZPosition:", void>(*this, position);
    }
    void setShadowColor(CGColor *color) const {
        objc::Send<"setShadowColor:", void>(*this, color);
    }
    void setShadowOpacity(float opacity) const {
        objc::Send<"setShadowOpacity:", void>(*this, opacity);
    }
    void setShadowOffset(cg::Size offset) const {
        objc::Send<"setShadowOffset:", void>(*this, offset);
    }
    void setShadowRadius(double radius) const {
        objc::Send<"setShadowRadius:", void>(*this, radius);
    }
};

} // namespace ca
