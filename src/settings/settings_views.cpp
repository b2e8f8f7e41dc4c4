#include "settings/settings_views.hpp"

#include "overlay/action_target.hpp"

namespace corvel {

ui::Label AddLabel(ui::View container, cg::Rect frame, ns::String text, ui::Font font, ui::Color color) {
    const auto label = ui::MakeView<ui::Label>(frame);
    label->setText(text);
    label->setFont(font);
    label->setTextColor(color);
    container.addSubview(label);
    return label;
}

ui::Button AddSystemButton(ui::View container, cg::Rect frame, ns::String title, ui::Color titleColor,
                           objc::SEL action) {
    const auto button = ui::Button::buttonWithType(UIButtonTypeSystem);
    button.setFrame(frame);
    button.setTitle(title, UIControlStateNormal);
    button.setTitleColor(titleColor, UIControlStateNormal);
    button.addTarget(ActionTarget(), action, UIControlEventTouchUpInside);
    container.addSubview(button);
    return button;
}

} // namespace corvel
