#include "uikit/toolbar.hpp"

#include "apple/uikit/button.hpp"
#include "runtime/native_class.hpp"
#include "uikit/bar_item.hpp"
#include "uikit/color.hpp"
#include "uikit/control.hpp"
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
constexpr long kDoneStyle = 2;

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

ToolbarState &StateOfToolbar(ui::View self) {
    return StateOf<ToolbarState>(self);
}

std::vector<BarButtonItem> ItemsOf(ui::View self) {
    const ns::Array items = StateOfToolbar(self).items;
    std::vector<BarButtonItem> list;
    list.reserve(items.count());
    for (unsigned long i = 0; i < items.count(); ++i) {
        list.emplace_back(items.objectAtIndex(i).pointer);
    }
    return list;
}

void Pressed(ItemButton self, objc::SEL, ItemButton, ui::Event event) {
    SendBarAction(StateOf<ItemButtonState>(self).item, event);
}

/// Leaves the items without this bar, and the bar without their buttons.
void Clear(ui::View self) {
    for (const BarButtonItem item : ItemsOf(self)) {
        BarItemStateOf(item).bar = nullptr;
    }
    for (const objc::Ref<ItemButton> &button : StateOfToolbar(self).buttons) {
        button->removeFromSuperview();
    }
    StateOfToolbar(self).buttons.clear();
}

void Dealloc(ui::View self, objc::SEL selector) {
    for (const BarButtonItem item : ItemsOf(self)) {
        BarItemStateOf(item).bar = nullptr;
    }
    detail::Dealloc<ToolbarState>(self.pointer, selector);
}

void AddButton(ui::View self, BarButtonItem item) {
    const auto button = objc::SendClass<ItemButton, "buttonWithType:", ItemButton>(ui::ButtonType::kSystem);
    StateOf<ItemButtonState>(button).item = item;
    button.addTarget(button, objc::Selector<"_pressed:withEvent:">(), ui::kTouchUpInside);
    self.addSubview(button);
    StateOfToolbar(self).buttons.emplace_back(button);
}

ns::Array Items(Toolbar self, objc::SEL) {
    return StateOfToolbar(self).items;
}

void SetItems(Toolbar self, objc::SEL, ns::Array items) {
    Clear(self);
    StateOfToolbar(self).items = objc::Ref<ns::Array>::Adopt(objc::Send<"copy", ns::Array>(items));
    for (const BarButtonItem item : ItemsOf(self)) {
        BarItemStateOf(item).bar = self;
        if (!IsFlexibleSpace(item) && !IsFixedSpace(item)) {
            AddButton(self, item);
        }
    }
    SetNeedsLayout(self);
}

void SetItemsAnimated(Toolbar self, objc::SEL selector, ns::Array items, bool) {
    SetItems(self, selector, items);
}

void ShowItem(ItemButton button) {
    const BarButtonItem item = StateOf<ItemButtonState>(button).item;
    const bool bold = BarButtonItemStateOf(item).style == kDoneStyle;
    const bool enabled = BarItemStateOf(item).enabled;
    button.setTitle(TitleOf(item), ui::kStateNormal);
    button.titleLabel().setFont(bold ? ui::Font::boldSystemFontOfSize(kTitleSize)
                                     : ui::Font::systemFontOfSize(kTitleSize));
    button.setTitleColor(enabled ? ui::Color::systemBlueColor() : ui::Color::systemGrayColor(), ui::kStateNormal);
    objc::Send<"setEnabled:", void>(ui::Control{button}, enabled);
}

/// Items stand from left to right; flexible spaces share what is left.
void LayoutSubviews(Toolbar self, objc::SEL) {
    const ToolbarState &state = StateOfToolbar(self);
    const cg::Size size = self.bounds().size;
    const std::vector<BarButtonItem> items = ItemsOf(self);
    double used = 0;
    std::vector<double> widths;
    for (const objc::Ref<ItemButton> &button : state.buttons) {
        ShowItem(button);
        widths.push_back(button->sizeThatFits(size).width + kGap);
        used += widths.back();
    }
    for (const BarButtonItem item : items) {
        used += IsFixedSpace(item) ? BarButtonItemStateOf(item).width : 0;
    }
    const auto springs = static_cast<double>(std::ranges::count_if(items, &IsFlexibleSpace));
    const double spring = springs > 0 ? std::max(0.0, (size.width - 2 * kMargin - used) / springs) : 0;
    double x = kMargin;
    std::size_t next = 0;
    for (const BarButtonItem item : items) {
        if (IsFlexibleSpace(item) || IsFixedSpace(item)) {
            x += IsFlexibleSpace(item) ? spring : BarButtonItemStateOf(item).width;
        } else {
            state.buttons[next]->setFrame({{x, 0}, {widths[next], size.height}});
            x += widths[next++];
        }
    }
}

cg::Size SizeThatFits(Toolbar, objc::SEL, cg::Size size) {
    return {size.width, kHeight};
}

void DrawToolbar(ui::View view, cairo_t *context) {
    const cg::Size size = PresentedValues(view).bounds.size;
    const double grey = IsDarkAppearance() ? 0.1 : 0.97;
    cairo_set_source_rgb(context, grey, grey, grey);
    cairo_rectangle(context, 0, 0, size.width, size.height);
    cairo_fill(context);
    const Rgba line = RgbaOf(ui::Color::separatorColor());
    cairo_set_source_rgba(context, line.r, line.g, line.b, line.a);
    cairo_rectangle(context, 0, 0, size.width, kHairline);
    cairo_fill(context);
}

} // namespace

void RegisterToolbar() {
    const objc::MethodEntry buttonMethods[] = {
        objc::MethodNamed<"_pressed:withEvent:", &Pressed>(),
    };
    RegisterClassWithState<ItemButtonState>(ItemButton::kClassName, "UIButton", buttonMethods);
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"dealloc", &Dealloc>(),
        objc::MethodNamed<"items", &Items>(),
        objc::MethodNamed<"setItems:", &SetItems>(),
        objc::MethodNamed<"setItems:animated:", &SetItemsAnimated>(),
        objc::MethodNamed<"layoutSubviews", &LayoutSubviews>(),
        objc::MethodNamed<"sizeThatFits:", &SizeThatFits>(),
    };
    RegisterClassWithState<ToolbarState>("UIToolbar", "UIView", methods);
    RegisterDrawing("UIToolbar", &DrawToolbar);
}

} // namespace sim
