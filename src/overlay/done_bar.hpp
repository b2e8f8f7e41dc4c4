#pragma once
// The bar above a keyboard with "完成" at its right end.

#include "apple/uikit/toolbar.hpp"
#include "objc/ref.hpp"

namespace corvel {

struct DoneBar {
    objc::Ref<ui::Toolbar> toolbar; // as wide as the screen, 44 points high
    objc::Ref<ui::BarButtonItem> done;
};

/// A bar whose "完成" sends the action to the overlay's action target.
DoneBar MakeDoneBar(objc::SEL action);

} // namespace corvel
