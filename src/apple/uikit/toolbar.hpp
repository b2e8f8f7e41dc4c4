#pragma once
// UIToolbar and its items.

#include "apple/foundation/string.hpp"
#include "apple/uikit/view.hpp"

enum UIBarButtonSystemItem : long {
    UIBarButtonSystemItemDone = 0,
    UIBarButtonSystemItemCancel = 1,
    UIBarButtonSystemItemEdit = 2,
    UIBarButtonSystemItemSave = 3,
    UIBarButtonSystemItemFlexibleSpace = 5,
    UIBarButtonSystemItemFixedSpace = 6,
};

enum UIBarButtonItemStyle : long { UIBarButtonItemStylePlain = 0, UIBarButtonItemStyleDone = 2 };

namespace ui {

struct BarButtonItem : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIBarButtonItem";

    BarButtonItem initWithBarButtonSystemItem(UIBarButtonSystemItem item, ns::Object target, objc::SEL action) const {
        return objc::Send<"initWithBarButtonSystemItem:target:action:", BarButtonItem>(*this, item, target, action);
    }
    BarButtonItem initWithTitle(ns::String title, UIBarButtonItemStyle style, ns::Object target,
                                objc::SEL action) const {
        return objc::Send<"initWithTitle:style:target:action:", BarButtonItem>(*this, title, style, target, action);
    }
};

struct Toolbar : View {
    using View::View;
    static constexpr const char *kClassName = "UIToolbar";

    void setItems(ns::Array items) const {
        objc::Send<"setItems:", void>(*this, items);
    }
};

} // namespace ui
