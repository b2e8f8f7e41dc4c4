#include "overlay/round_button.hpp"

#include "overlay/action_target.hpp"
#include "preferences/preferences.hpp"

namespace corvel {

ui::Button MakeRoundButton(ns::String title, ui::Color background, objc::SEL action) {
    const auto button = ui::Button::buttonWithType(UIButtonTypeCustom);
    button.setFrame({{0, 0}, {kRoundButtonDiameter, kRoundButtonDiameter}});
    button.setBackgroundColor(background);
    button.layer().setCornerRadius(kRoundButtonDiameter / 2);
    button.setTitle(title, UIControlStateNormal);
    button.addTarget(ActionTarget(), action, UIControlEventTouchUpInside);
    button.setAlpha(kFloatButtonAlpha.Read());
    return button;
}

} // namespace corvel
