#pragma once
// UILabel.

#include "apple/foundation/string.hpp"
#include "apple/uikit/font.hpp"
#include "apple/uikit/view.hpp"

namespace ui {

/// NSTextAlignment.
enum class TextAlignment : long { kLeft = 0, kCenter = 1 };
/// NSLineBreakMode.
enum class LineBreakMode : long { kByWordWrapping = 0 };
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
    void setFont(Font font) const {
        objc::Send<"setFont:", void>(*this, font);
    }
    void setTextAlignment(TextAlignment alignment) const {
        objc::Send<"setTextAlignment:", void>(*this, alignment);
    }
    void setNumberOfLines(long lines) const {
        objc::Send<"setNumberOfLines:", void>(*this, lines);
    }
    void setLineBreakMode(LineBreakMode mode) const {
        objc::Send<"setLineBreakMode:", void>(*this, mode);
    }
};

} // namespace ui
