// UIView: superview, subviews and window.

#include "runtime/exception.hpp"
#include "uikit/array.hpp"
#include "uikit/responder.hpp"
#include "uikit/touch_delivery.hpp"
#include "uikit/view.hpp"
#include "uikit/view_parts.hpp"

#include <algorithm>

namespace sim {
namespace {

using Subviews = std::vector<objc::Ref<ui::View>>;

Subviews::iterator PlaceOf(ui::View child, Subviews &subviews) {
    return std::ranges::find(subviews, child, &objc::Ref<ui::View>::get);
}

/// Calls the function with the view and all below it, as they stand when it is reached.
template <class F> void ForSubtree(ui::View view, F function) {
    function(view);
    for (const objc::Ref<ui::View> &child : Subviews(ViewStateOf(view).subviews)) {
        ForSubtree(child.get(), function);
    }
}

/// What was under way in a view ends when the view leaves its window.
void LeaveWindow(ui::View view) {
    EndAnimations(view);
    CancelTouchesOf(view);
    if (FirstResponder() == view) {
        view.resignFirstResponder();
    }
}

/// Moves the view within its parent's subviews.
void Reorder(ui::View parent, ui::View child, std::size_t index) {
    Subviews &subviews = ViewStateOf(parent).subviews;
    const auto place = PlaceOf(child, subviews);
    const objc::Ref<ui::View> keep = *place;
    subviews.erase(place);
    subviews.insert(subviews.begin() + static_cast<long>(std::min(index, subviews.size())), keep);
    SetNeedsLayout(parent);
}

/// Takes the view from its parent, if any, and puts it into another, if any.
void Reparent(ui::View child, ui::View parent, std::size_t index) {
    const objc::Ref<ui::View> keep = child; // whoever hears of the move may give up any of them
    const objc::Ref<ui::View> keepParent = parent;
    const objc::Ref<ui::View> old = ViewStateOf(child).superview;
    const ui::Window oldWindow = WindowOf(old);
    const ui::Window newWindow = WindowOf(parent);
    const bool windowChanges = !(oldWindow == newWindow);
    if (windowChanges) {
        ForSubtree(child, [&](ui::View view) { objc::Send<"willMoveToWindow:", void>(view, newWindow); });
    }
    objc::Send<"willMoveToSuperview:", void>(child, parent);
    if (old) {
        objc::Send<"willRemoveSubview:", void>(old.get(), child);
        Subviews &siblings = ViewStateOf(old).subviews;
        if (const auto place = PlaceOf(child, siblings); place != siblings.end()) {
            siblings.erase(place);
        }
    }
    ViewStateOf(child).superview = parent;
    if (parent) {
        Subviews &siblings = ViewStateOf(parent).subviews;
        siblings.insert(siblings.begin() + static_cast<long>(std::min(index, siblings.size())), keep);
    }
    if (windowChanges) {
        ForSubtree(child, [&](ui::View view) {
            if (oldWindow) {
                LeaveWindow(view);
            }
            objc::Send<"didMoveToWindow", void>(view);
        });
    }
    objc::Send<"didMoveToSuperview", void>(child);
    if (parent) {
        objc::Send<"didAddSubview:", void>(parent, child);
        SetNeedsLayout(parent);
    }
}

/// Inserts beside a sibling; at the front when that is no subview.
void InsertBeside(ui::View self, ui::View child, ui::View sibling, long offset) {
    const Subviews &subviews = ViewStateOf(self).subviews;
    if (child == sibling) {
        return;
    }
    // The index counts without the child, which leaves its old place.
    long index = 0;
    for (const objc::Ref<ui::View> &other : subviews) {
        if (other.get() == sibling) {
            InsertSubview(self, child, static_cast<std::size_t>(index + offset));
            return;
        }
        index += other.get() == child ? 0 : 1;
    }
    InsertSubview(self, child, subviews.size());
}

void MoveWithin(ui::View self, ui::View child, std::size_t index) {
    if (child && ViewStateOf(child).superview == self) {
        Reorder(self, child, index);
    }
}

/// What subclasses override to hear of changes; UIView itself does nothing then.
void DefineNotices(ViewClass &view) {
    view.Method<"didAddSubview:">([](ui::View, ui::View) {});
    view.Method<"willRemoveSubview:">([](ui::View, ui::View) {});
    view.Method<"willMoveToSuperview:">([](ui::View, ui::View) {});
    view.Method<"didMoveToSuperview">([](ui::View) {});
    view.Method<"willMoveToWindow:">([](ui::View, ui::Window) {});
    view.Method<"didMoveToWindow">([](ui::View) {});
}

} // namespace

void DefineViewTree(ViewClass &view) {
    view.ReadOnly<"superview", &ViewState::superview>();
    view.Method<"subviews">([](const ViewState &state) { return MakeArray(state.subviews); });
    view.Method<"window", &WindowOf>();
    view.Method<"isDescendantOfView:", &IsDescendant>();
    view.Method<"viewWithTag:">([](ui::View self, long tag) -> ui::View {
        const ViewState &state = ViewStateOf(self);
        if (state.tag == tag) {
            return self;
        }
        for (const objc::Ref<ui::View> &child : state.subviews) {
            if (const ui::View found = child->viewWithTag(tag)) {
                return found;
            }
        }
        return {};
    });
    view.Method<"addSubview:">(
        [](ui::View self, ui::View child) { InsertSubview(self, child, ViewStateOf(self).subviews.size()); });
    view.Method<"insertSubview:atIndex:">([](ui::View self, ui::View child, long index) {
        InsertSubview(self, child, static_cast<std::size_t>(std::max(index, 0L)));
    });
    view.Method<"insertSubview:aboveSubview:">(
        [](ui::View self, ui::View child, ui::View sibling) { InsertBeside(self, child, sibling, 1); });
    view.Method<"insertSubview:belowSubview:">(
        [](ui::View self, ui::View child, ui::View sibling) { InsertBeside(self, child, sibling, 0); });
    view.Method<"bringSubviewToFront:">(
        [](ui::View self, ui::View child) { MoveWithin(self, child, ViewStateOf(self).subviews.size()); });
    view.Method<"sendSubviewToBack:">([](ui::View self, ui::View child) { MoveWithin(self, child, 0); });
    view.Method<"removeFromSuperview">([](ui::View self) {
        if (ViewStateOf(self).superview) {
            Reparent(self, nullptr, 0);
        }
    });
    view.Method<"nextResponder">(
        [](const ViewState &state) -> ui::Responder { return state.controller ? state.controller : state.superview; });
    DefineNotices(view);
}

ui::Window WindowOf(ui::View view) {
    while (view) {
        const ui::View parent = ViewStateOf(view).superview;
        if (!parent) {
            return view.isKindOfClass(objc::ClassOf<ui::Window>()) ? objc::As<ui::Window>(view) : ui::Window{};
        }
        view = parent;
    }
    return {};
}

bool IsDescendant(ui::View view, ui::View ancestor) {
    for (; view; view = ViewStateOf(view).superview) {
        if (view == ancestor) {
            return true;
        }
    }
    return false;
}

void InsertSubview(ui::View parent, ui::View child, std::size_t index) {
    if (!child) {
        return;
    }
    if (IsDescendant(parent, child)) {
        RaiseException("NSInvalidArgumentException", "Can't add self as subview");
    }
    if (ViewStateOf(child).superview == parent) {
        Reorder(parent, child, index);
    } else {
        Reparent(child, parent, index);
    }
}

} // namespace sim
