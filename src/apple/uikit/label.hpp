#pragma once
// UILabel.

#include "apple/foundation/string.hpp"
#include "apple/uikit/font.hpp"
#include "apple/uikit/view.hpp"

enum NSTextAlignment : long {
    NSTextAlignmentLeft = 0,
    NSTextAlignmentCenter = 1,
    NSTextAlignmentRight = 2,
    NSTextAlignmentJustified = 3,
    NSTextAlignmentNatural = 4,
};

enum NSLineBreakMode : long {
    NSLineBreakByWordWrapping = 0,
    NSLineBreakByCharWrapping = 1,
    NSLineBreakByClipping = 2,
    NSLineBreakByTruncatingHead = 3,
    NSLineBreakByTruncatingTail = 4,
    NSLineBreakByTruncatingMiddle = 5,
};

namespace ui {

struct Label : View {
    using View::View;
    static constexpr const char *kClassName = "UILabel";

    ns::String text() const {
        return objc::Send<"text", ns::String>(*this);
    }
    void setText(ns::String text) const {
        objc::Send<"setText:", void>(*this, text);
    }
    void setTextColor(Color color) const {
        objc::Send<"setTextColor:", void>(*this, color);
    }
    Font font() const {
        return objc::Send<"font", Font>(*this);
    }
    void setFont(Font font) const {
        objc::Send<"setFont:", void>(*this, font);
    }
    void setTextAlignment(NSTextAlignment alignment) const {
        objc::Send<"setTextAlignment:", void>(*this, alignment);
    }
    void setNumberOfLines(long lines) const {
        objc::Send<"setNumberOfLines:", void>(*this, lines);
    }
    void setLineBreakMode(NSLineBreakMode mode) const {
        objc::Send<"setLineBreakMode:", void>(*this, mode);
    }
};

} // namespace ui
