#pragma once
// UITextView.

#include "apple/uikit/edge_insets.hpp"
#include "apple/uikit/label.hpp"

namespace ui {

struct TextView : View {
    using View::View;
    static constexpr const char *kClassName = "UITextView";

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
    void setTextContainerInset(EdgeInsets insets) const {
        objc::Send<"setTextContainerInset:", void>(*this, insets);
    }
    /// The view that rides on the keyboard while this one is edited.
    void setInputAccessoryView(View view) const {
        objc::Send<"setInputAccessoryView:", void>(*this, view);
    }
};

} // namespace ui
