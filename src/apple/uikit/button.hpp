#pragma once
// UIControl and UIButton.

#include "apple/uikit/edge_insets.hpp"
#include "apple/uikit/label.hpp"

namespace ui {

/// UIControlEvents.
inline constexpr unsigned long kTouchUpInside = 64;
inline constexpr unsigned long kValueChanged = 4096;
inline constexpr unsigned long kEditingDidEnd = 262144;
/// UIControlStateNormal.
inline constexpr unsigned long kStateNormal = 0;
/// UIControlContentHorizontalAlignment.
enum class HorizontalAlignment : long { kCenter = 0, kLeft = 1 };
/// UIControlContentVerticalAlignment.
enum class VerticalAlignment : long { kCenter = 0 };
/// UIButtonType.
enum class ButtonType : long { kCustom = 0, kSystem = 1 };
struct Control : View {
    using View::View;
    static constexpr const char *kClassName = "UIControl";

    void addTarget(ns::Object target, objc::SEL action, unsigned long events) const {
        objc::Send<"addTarget:action:forControlEvents:", void>(*this, target, action, events);
    }
    void setContentHorizontalAlignment(HorizontalAlignment alignment) const {
        objc::Send<"setContentHorizontalAlignment:", void>(*this, alignment);
    }
    void setContentVerticalAlignment(VerticalAlignment alignment) const {
        objc::Send<"setContentVerticalAlignment:", void>(*this, alignment);
    }
};

struct Button : Control {
    using Control::Control;
    static constexpr const char *kClassName = "UIButton";

    static Button buttonWithType(ButtonType type) {
        return objc::SendClass<Button, "buttonWithType:", Button>(type);
    }
    Label titleLabel() const {
        return objc::Send<"titleLabel", Label>(*this);
    }
    ns::String titleForState(unsigned long state) const {
        return objc::Send<"titleForState:", ns::String>(*this, state);
    }
    void setTitleEdgeInsets(EdgeInsets insets) const {
        objc::Send<"setTitleEdgeInsets:", void>(*this, insets);
    }
    void setTitle(ns::String title, unsigned long state) const {
        objc::Send<"setTitle:forState:", void>(*this, title, state);
    }
    void setTitleColor(Color color, unsigned long state) const {
        objc::Send<"setTitleColor:forState:", void>(*this, color, state);
    }
};

} // namespace ui
