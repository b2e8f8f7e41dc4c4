#pragma once
// UIToolbar and its items.

#include "apple/foundation/string.hpp"
#include "apple/uikit/view.hpp"

namespace ui {

/// UIBarButtonSystemItem.
enum class BarButtonSystemItem : long { kFlexibleSpace = 5 };
/// UIBarButtonItemStyle.
enum class BarButtonItemStyle : long { kDone = 2 };
struct BarButtonItem : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIBarButtonItem";

    BarButtonItem initWithBarButtonSystemItem(BarButtonSystemItem item, ns::Object target, objc::SEL action) const {
        return objc::Send<"initWithBarButtonSystemItem:target:action:", BarButtonItem>(*this, item, target, action);
    }
    BarButtonItem initWithTitle(ns::String title, BarButtonItemStyle style, ns::Object target, objc::SEL action) const {
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
