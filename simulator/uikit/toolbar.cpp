// UIToolbar.

#include "apple/uikit/button.hpp"
#include "runtime/native_class.hpp"
#include "uikit/bar_item.hpp"
#include "uikit/classes.hpp"
#include "uikit/drawing.hpp"
#include "uikit/view.hpp"

#include <algorithm>
#include <cairo.h>

namespace sim {
namespace {

using ui::BarButtonItem;
using ui::Toolbar;

constexpr double kMargin = 16; // points left and right of the items
constexpr double kGap = 8;     // points between neighbours
constexpr double kHeight = 44;
constexpr double kTitleSize = 17;
constexpr double kHairline = 0.5;

/// The button that stands for an item in the bar.
struct ItemButton : ui::Button {
    using ui::Button::Button;
    static constexpr const char *kClassName = "_UIButtonBarButton";
};

struct ItemButtonState {
    objc::Ref<BarButtonItem> item;
};

struct ToolbarState {
    objc::Ref<ns::Array> items;
    std::vector<objc::Ref<ItemButton>> buttons;
};

ns::ArrayOf<BarButtonItem> ItemsOf(ui::View self) {
    return StateOf<ToolbarState>(self).items.get();
}

/// Sets which bar the items of this one belong to.
void SetBar(ui::View self, ui::View bar) {
    for (const BarButtonItem item : ItemsOf(self)) {
        BarItemStateOf(item).bar = bar;
    }
}

void AddButton(ui::View self, BarButtonItem item) {
    const auto button = objc::SendClass<ItemButton, "buttonWithType:", ItemButton>(UIButtonTypeSystem);
    StateOf<ItemButtonState>(button).item = item;
    button.addTarget(button, objc::Selector<"_pressed:withEvent:">(), UIControlEventTouchUpInside);
    self.addSubview(button);
    StateOf<ToolbarState>(self).buttons.emplace_back(button);
}

bool IsSpace(BarButtonItem item) {
    return IsFlexibleSpace(item) || IsFixedSpace(item);
}

void SetItems(Toolbar self, ns::Array items) {
    auto &state = StateOf<ToolbarState>(self);
    SetBar(self, nullptr);
    for (const objc::Ref<ItemButton> &button : state.buttons) {
        button->removeFromSuperview();
    }
    state.buttons.clear();
    state.items = CopyOf(items);
    SetBar(self, self);
    for (const BarButtonItem item : ItemsOf(self)) {
        if (!IsSpace(item)) {
            AddButton(self, item);
        }
    }
    SetNeedsLayout(self);
}

void ShowItem(ItemButton button) {
    const BarButtonItem item = StateOf<ItemButtonState>(button).item;
    const bool bold = BarButtonItemStateOf(item).style == UIBarButtonItemStyleDone;
    const bool enabled = BarItemStateOf(item).enabled;
    button.setTitle(TitleOf(item), UIControlStateNormal);
    button.titleLabel().setFont(bold ? ui::Font::boldSystemFontOfSize(kTitleSize)
                                     : ui::Font::systemFontOfSize(kTitleSize));
    button.setTitleColor(enabled ? ui::Color::systemBlueColor() : ui::Color::systemGrayColor(), UIControlStateNormal);
    objc::Send<"setEnabled:", void>(ui::Control{button}, enabled);
}

/// Items stand from left to right; flexible spaces share what is left.
void LayoutItems(Toolbar self) {
    const auto &state = StateOf<ToolbarState>(self);
    const cg::Size size = self.bounds().size;
    double used = 0;
    std::vector<double> widths;
    for (const objc::Ref<ItemButton> &button : state.buttons) {
        ShowItem(button);
        widths.push_back(button->sizeThatFits(size).width + kGap);
        used += widths.back();
    }
    double springs = 0;
    for (const BarButtonItem item : ItemsOf(self)) {
        used += IsFixedSpace(item) ? BarButtonItemStateOf(item).width : 0;
        springs += IsFlexibleSpace(item) ? 1 : 0;
    }
    const double spring = springs > 0 ? std::max(0.0, (size.width - 2 * kMargin - used) / springs) : 0;
    double x = kMargin;
    std::size_t next = 0;
    for (const BarButtonItem item : ItemsOf(self)) {
        if (IsSpace(item)) {
            x += IsFlexibleSpace(item) ? spring : BarButtonItemStateOf(item).width;
        } else {
            state.buttons[next]->setFrame({{x, 0}, {widths[next], size.height}});
            x += widths[next++];
        }
    }
}

void DrawToolbar(ui::View view, cairo_t *context) {
    const cg::Size size = PresentedValues(view).bounds.size;
    const double grey = IsDarkAppearance() ? 0.1 : 0.97;
    cairo_set_source_rgb(context, grey, grey, grey);
    cairo_rectangle(context, 0, 0, size.width, size.height);
    cairo_fill(context);
    SetPaint(context, ui::Color::separatorColor());
    cairo_rectangle(context, 0, 0, size.width, kHairline);
    cairo_fill(context);
}

} // namespace

void DefineToolbar() {
    auto button = Class<ItemButtonState>(ItemButton::kClassName, "UIButton");
    button.Method<"_pressed:withEvent:">(
        [](const ItemButtonState &state, ItemButton, ui::Event event) { SendBarAction(state.item, event); });

    auto bar = Class<ToolbarState>("UIToolbar", "UIView");
    bar.Dealloc([](Toolbar self) { SetBar(self, nullptr); });
    bar.ReadOnly<"items", &ToolbarState::items>();
    bar.Method<"setItems:", &SetItems>();
    bar.Method<"setItems:animated:">([](Toolbar self, ns::Array items, bool) { SetItems(self, items); });
    bar.Method<"layoutSubviews", &LayoutItems>();
    bar.Method<"sizeThatFits:">([](Toolbar, cg::Size size) { return cg::Size{size.width, kHeight}; });
    RegisterDrawing("UIToolbar", &DrawToolbar);
}

} // namespace sim
