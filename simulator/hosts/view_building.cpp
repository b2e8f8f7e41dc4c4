#include "hosts/view_building.hpp"

#include "script/values.hpp"

namespace sim::hosts {

cg::Rect Box(double x, double y, double width, double height) {
    return {{x, y}, {width, height}};
}

ui::Color Rgb(unsigned rgb, double alpha) {
    return ui::Color::colorWithRed(((rgb >> 16) & 255) / 255.0, ((rgb >> 8) & 255) / 255.0, (rgb & 255) / 255.0, alpha);
}

ui::View AddBox(ui::View parent, cg::Rect frame, ui::Color color, double radius) {
    const auto box = AddNew<ui::View>(parent, frame);
    box.setBackgroundColor(color);
    box.layer().setCornerRadius(radius);
    return box;
}

ui::Label AddLabel(ui::View parent, cg::Rect frame, ns::String text, const LabelLook &look) {
    const auto label = AddNew<ui::Label>(parent, frame);
    label.setText(text);
    label.setFont(look.bold ? ui::Font::boldSystemFontOfSize(look.size) : ui::Font::systemFontOfSize(look.size));
    label.setTextColor(look.color);
    label.setTextAlignment(look.alignment);
    return label;
}

ui::Label AddLabel(ui::View parent, cg::Rect frame, const std::string &text, const LabelLook &look) {
    return AddLabel(parent, frame, script::MakeString(text), look);
}

} // namespace sim::hosts
