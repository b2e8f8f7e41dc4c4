#pragma once
// UIBarItem and UIBarButtonItem: what toolbars show, and where a tap on it goes.

#include "apple/uikit/toolbar.hpp"
#include "objc/ref.hpp"
#include "uikit/target_action.hpp"

namespace sim {

struct BarItemState {
    objc::Ref<ns::String> title;
    bool enabled = true;
    long tag = 0;
    ui::View bar; // that shows it; not owned
};

struct BarButtonItemState {
    TargetAction action;
    UIBarButtonItemStyle style = UIBarButtonItemStylePlain;
    long systemItem = -1; // UIBarButtonSystemItem; -1 for an item with a title
    double width = 0;     // of a fixed space, points
};

BarItemState &BarItemStateOf(ui::BarButtonItem item);
BarButtonItemState &BarButtonItemStateOf(ui::BarButtonItem item);

/// What the item shows: its own title, or the system's for its kind; nil for spaces.
ns::String TitleOf(ui::BarButtonItem item);

bool IsFlexibleSpace(ui::BarButtonItem item);
bool IsFixedSpace(ui::BarButtonItem item);

/// Sends the item's action, with the item as the sender, to its target.
void SendBarAction(ui::BarButtonItem item, ui::Event event);

} // namespace sim
