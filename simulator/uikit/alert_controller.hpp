#pragma once
// UIAlertController and UIAlertAction, for the views that show them and for the driver.

#include "apple/uikit/alert_controller.hpp"
#include "objc/ref.hpp"

#include <functional>
#include <vector>

namespace sim {

struct AlertActionState {
    objc::Ref<ns::String> title;
    UIAlertActionStyle style = UIAlertActionStyleDefault;
    std::function<void(ui::AlertAction)> handler; // may be empty
    bool enabled = true;
    ui::View view; // of the alert that shows it; not owned
};

struct AlertState {
    objc::Ref<ns::String> message;
    std::vector<objc::Ref<ui::AlertAction>> actions; // in order of adding
    objc::Ref<ui::AlertAction> preferred;
};

AlertState &AlertStateOf(ui::AlertController alert);
AlertActionState &AlertActionStateOf(ui::AlertAction action);

/// What a tap on the action's button does: the alert goes, then the action's handler runs.
void ChooseAlertAction(ui::AlertController alert, ui::AlertAction action);

} // namespace sim
