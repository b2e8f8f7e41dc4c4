#include "uikit/bar_item.hpp"

#include "runtime/exception.hpp"
#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"
#include "uikit/view.hpp"

namespace sim {
namespace {

using ui::BarButtonItem;

void Changed(BarButtonItem self) {
    SetNeedsLayout(BarItemStateOf(self).bar);
}

BarButtonItem InitWithSystemItem(BarButtonItem self, long kind, ns::Object target, objc::SEL action) {
    const bool hasTitle = kind >= UIBarButtonSystemItemDone && kind <= UIBarButtonSystemItemSave;
    const bool known =
        hasTitle || kind == UIBarButtonSystemItemFlexibleSpace || kind == UIBarButtonSystemItemFixedSpace;
    if (!known) {
        RaiseException("NSInvalidArgumentException", "this phone has no system bar item " + std::to_string(kind));
    }
    const auto item = objc::Send<"init", BarButtonItem>(self);
    BarButtonItemState &state = BarButtonItemStateOf(item);
    state.systemItem = kind;
    state.style = kind == UIBarButtonSystemItemDone || kind == UIBarButtonSystemItemSave ? UIBarButtonItemStyleDone
                                                                                         : UIBarButtonItemStylePlain;
    state.action = {WeakObject(target), action};
    return item;
}

BarButtonItem InitWithTitle(BarButtonItem self, ns::String title, UIBarButtonItemStyle style, ns::Object target,
                            objc::SEL action) {
    const auto item = objc::Send<"init", BarButtonItem>(self);
    BarItemStateOf(item).title = CopyOf(title);
    BarButtonItemState &state = BarButtonItemStateOf(item);
    state.style = style;
    state.action = {WeakObject(target), action};
    return item;
}

} // namespace

void DefineBarItem() {
    auto bar = Class<BarItemState>("UIBarItem", "NSObject");
    bar.Property<"title", &BarItemState::title, &Changed>();
    bar.Property<"isEnabled", &BarItemState::enabled, &Changed>();
    bar.Property<"tag", &BarItemState::tag>();

    auto item = Class<BarButtonItemState>("UIBarButtonItem", "UIBarItem");
    item.Method<"initWithBarButtonSystemItem:target:action:", &InitWithSystemItem>();
    item.Method<"initWithTitle:style:target:action:", &InitWithTitle>();
    item.Method<"target">([](const BarButtonItemState &state) { return state.action.target.Lock(); });
    item.Method<"setTarget:">(
        [](BarButtonItemState &state, ns::Object target) { state.action.target = WeakObject(target); });
    item.Method<"action">([](const BarButtonItemState &state) { return state.action.action; });
    item.Method<"setAction:">([](BarButtonItemState &state, objc::SEL action) { state.action.action = action; });
    item.Property<"style", &BarButtonItemState::style, &Changed>();
    item.Property<"width", &BarButtonItemState::width, &Changed>();
}

BarItemState &BarItemStateOf(BarButtonItem item) {
    return StateOf<BarItemState>(item);
}

BarButtonItemState &BarButtonItemStateOf(BarButtonItem item) {
    return StateOf<BarButtonItemState>(item);
}

ns::String TitleOf(BarButtonItem item) {
    switch (BarButtonItemStateOf(item).systemItem) {
    case UIBarButtonSystemItemDone:
        return u"完成"_ns;
    case UIBarButtonSystemItemCancel:
        return u"取消"_ns;
    case UIBarButtonSystemItemEdit:
        return u"编辑"_ns;
    case UIBarButtonSystemItemSave:
        return u"存储"_ns;
    default:
        return BarItemStateOf(item).title;
    }
}

bool IsFlexibleSpace(BarButtonItem item) {
    return BarButtonItemStateOf(item).systemItem == UIBarButtonSystemItemFlexibleSpace;
}

bool IsFixedSpace(BarButtonItem item) {
    return BarButtonItemStateOf(item).systemItem == UIBarButtonSystemItemFixedSpace;
}

void SendBarAction(BarButtonItem item, ui::Event event) {
    const objc::Ref<BarButtonItem> keep = item;
    const TargetAction action = BarButtonItemStateOf(item).action;
    if (!action.IsOrphaned()) {
        SendAction(action.action, action.target.Lock().get(), item, event);
    }
}

} // namespace sim
