#pragma once
// Short forms for building an app's own screens.

#include "apple/uikit/label.hpp"
#include "objc/ref.hpp"

#include <string>

namespace sim::hosts {

cg::Rect Box(double x, double y, double width, double height);

/// 0xRRGGBB.
ui::Color Rgb(unsigned rgb, double alpha = 1);

/// Adds a new view of a class.
template <class T> T AddNew(ui::View parent, cg::Rect frame) {
    const auto view = ui::MakeView<T>(frame);
    parent.addSubview(view);
    return view;
}

/// Adds a plain view with round corners.
ui::View AddBox(ui::View parent, cg::Rect frame, ui::Color color, double radius);

struct LabelLook {
    double size = 14;
    bool bold = false;
    ui::Color color = ui::Color::whiteColor();
    NSTextAlignment alignment = NSTextAlignmentLeft;
};

ui::Label AddLabel(ui::View parent, cg::Rect frame, ns::String text, const LabelLook &look);
ui::Label AddLabel(ui::View parent, cg::Rect frame, const std::string &text, const LabelLook &look);

} // namespace sim::hosts
