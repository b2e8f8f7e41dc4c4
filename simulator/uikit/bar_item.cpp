#include "uikit/bar_item.hpp"

#include "apple/uikit/window.hpp"
#include "runtime/exception.hpp"
#include "runtime/native_class.hpp"
#include "uikit/view.hpp"

namespace sim {
namespace {

using ui::BarButtonItem;

constexpr long kDoneStyle = 2;
/// UIBarButtonSystemItem: those that show words, and the two spaces.
constexpr long kDone = 0;
constexpr long kCancel = 1;
constexpr long kEdit = 2;
constexpr long kSave = 3;
constexpr long kFlexibleSpace = 5;
constexpr long kFixedSpace = 6;

void Changed(BarButtonItem self) {
    SetNeedsLayout(BarItemStateOf(self).bar);
}

ns::String Title(BarButtonItem self, objc::SEL) {
    return BarItemStateOf(self).title;
}

void SetTitle(BarButtonItem self, objc::SEL, ns::String title) {
    BarItemStateOf(self).title = objc::Ref<ns::String>::Adopt(objc::Send<"copy", ns::String>(title));
    Changed(self);
}

bool IsEnabled(BarButtonItem self, objc::SEL) {
    return BarItemStateOf(self).enabled;
}

void SetEnabled(BarButtonItem self, objc::SEL, bool enabled) {
    BarItemStateOf(self).enabled = enabled;
    Changed(self);
}

long Tag(BarButtonItem self, objc::SEL) {
    return BarItemStateOf(self).tag;
}

void SetTag(BarButtonItem self, objc::SEL, long tag) {
    BarItemStateOf(self).tag = tag;
}

BarButtonItem InitWithSystemItem(BarButtonItem self, objc::SEL, long kind, ns::Object target, objc::SEL action) {
    const bool known = (kind >= kDone && kind <= kSave) || kind == kFlexibleSpace || kind == kFixedSpace;
    if (!known) {
        RaiseException("NSInvalidArgumentException", "this phone has no system bar item " + std::to_string(kind));
    }
    const auto item = objc::Send<"init", BarButtonItem>(self);
    if (item) {
        BarButtonItemState &state = BarButtonItemStateOf(item);
        state.systemItem = kind;
        state.style = kind == kDone || kind == kSave ? kDoneStyle : 0;
        state.action = {WeakObject(target), action};
    }
    return item;
}

BarButtonItem InitWithTitle(BarButtonItem self, objc::SEL, ns::String title, long style, ns::Object target,
                            objc::SEL action) {
    const auto item = objc::Send<"init", BarButtonItem>(self);
    if (item) {
        SetTitle(item, nullptr, title);
        BarButtonItemStateOf(item).style = style;
        BarButtonItemStateOf(item).action = {WeakObject(target), action};
    }
    return item;
}

ns::Object Target(BarButtonItem self, objc::SEL) {
    return BarButtonItemStateOf(self).action.target.Lock().get();
}

void SetTarget(BarButtonItem self, objc::SEL, ns::Object target) {
    BarButtonItemStateOf(self).action.target = WeakObject(target);
}

objc::SEL Action(BarButtonItem self, objc::SEL) {
    return BarButtonItemStateOf(self).action.action;
}

void SetAction(BarButtonItem self, objc::SEL, objc::SEL action) {
    BarButtonItemStateOf(self).action.action = action;
}

template <auto Member> auto Get(BarButtonItem self, objc::SEL) {
    return BarButtonItemStateOf(self).*Member;
}

template <auto Member, class T> void Set(BarButtonItem self, objc::SEL, T value) {
    BarButtonItemStateOf(self).*Member = value;
    Changed(self);
}

} // namespace

BarItemState &BarItemStateOf(BarButtonItem item) {
    return StateOf<BarItemState>(item);
}

BarButtonItemState &BarButtonItemStateOf(BarButtonItem item) {
    return StateOf<BarButtonItemState>(item);
}

ns::String TitleOf(BarButtonItem item) {
    switch (BarButtonItemStateOf(item).systemItem) {
    case kDone:
        return u"完成"_ns;
    case kCancel:
        return u"取消"_ns;
    case kEdit:
        return u"编辑"_ns;
    case kSave:
        return u"存储"_ns;
    default:
        return BarItemStateOf(item).title;
    }
}

bool IsFlexibleSpace(BarButtonItem item) {
    return BarButtonItemStateOf(item).systemItem == kFlexibleSpace;
}

bool IsFixedSpace(BarButtonItem item) {
    return BarButtonItemStateOf(item).systemItem == kFixedSpace;
}

void SendBarAction(BarButtonItem item, ui::Event event) {
    const objc::Ref<BarButtonItem> keep = item;
    const TargetAction action = BarButtonItemStateOf(item).action;
    const objc::Ref<ns::Object> target = action.target.Lock();
    // A target that is gone is not a missing one: its action goes nowhere.
    if (target || !action.target.IsSet()) {
        objc::Send<"sendAction:to:from:forEvent:", bool>(ui::Application::sharedApplication(), action.action,
                                                         target.get(), ns::Object{item}, event);
    }
}

void RegisterBarItem() {
    const objc::MethodEntry barMethods[] = {
        objc::MethodNamed<"title", &Title>(),
        objc::MethodNamed<"setTitle:", &SetTitle>(),
        objc::MethodNamed<"isEnabled", &IsEnabled>(),
        objc::MethodNamed<"setEnabled:", &SetEnabled>(),
        objc::MethodNamed<"tag", &Tag>(),
        objc::MethodNamed<"setTag:", &SetTag>(),
    };
    RegisterClassWithState<BarItemState>("UIBarItem", "NSObject", barMethods);
    using S = BarButtonItemState;
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"initWithBarButtonSystemItem:target:action:", &InitWithSystemItem>(),
        objc::MethodNamed<"initWithTitle:style:target:action:", &InitWithTitle>(),
        objc::MethodNamed<"target", &Target>(),
        objc::MethodNamed<"setTarget:", &SetTarget>(),
        objc::MethodNamed<"action", &Action>(),
        objc::MethodNamed<"setAction:", &SetAction>(),
        objc::MethodNamed<"style", &Get<&S::style>>(),
        objc::MethodNamed<"setStyle:", &Set<&S::style, long>>(),
        objc::MethodNamed<"width", &Get<&S::width>>(),
        objc::MethodNamed<"setWidth:", &Set<&S::width, double>>(),
    };
    RegisterClassWithState<BarButtonItemState>("UIBarButtonItem", "UIBarItem", methods);
}

} // namespace sim
