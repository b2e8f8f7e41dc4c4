#pragma once
// What an alert looks like: everything behind it dimmed, a card with title and message, which scroll when they are
// long, and under them the buttons.

#include "apple/uikit/alert_controller.hpp"
#include "objc/ref.hpp"

namespace sim {

/// A view to fill the window with.
objc::Ref<ui::View> MakeAlertView();

/// Shows what the alert now has to say; the view does not keep the alert.
void FillAlertView(ui::View view, ui::AlertController alert);

/// Tells the view that its alert is being deallocated.
void ForgetAlert(ui::View view);

} // namespace sim
