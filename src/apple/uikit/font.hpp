#pragma once
// UIFont.

#include "apple/foundation/string.hpp"

namespace ui {

struct Font : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIFont";

    static Font systemFontOfSize(double size) {
        return objc::SendClass<Font, "systemFontOfSize:", Font>(size);
    }
    /// In points.
    double pointSize() const {
        return objc::Send<"pointSize", double>(*this);
    }
    /// Of one line, in points.
    double lineHeight() const {
        return objc::Send<"lineHeight", double>(*this);
    }
    static Font boldSystemFontOfSize(double size) {
        return objc::SendClass<Font, "boldSystemFontOfSize:", Font>(size);
    }
};

} // namespace ui

extern "C" {
/// The attribute key under which text measuring and drawing find their font.
extern const ns::String NSFontAttributeName;
}
