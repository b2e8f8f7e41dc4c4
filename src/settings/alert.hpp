#pragma once
// The alerts of the settings: a question or a text with a few answers.

#include "apple/uikit/alert_controller.hpp"
#include "overlay/presentation.hpp"

namespace corvel {

/// An alert that is put together and then shown. Answers stand in the order in which they are added.
class Alert {
  public:
    Alert(ns::String title, ns::String message)
        : controller_(ui::AlertController::alertControllerWithTitle(title, message, UIAlertControllerStyleAlert)) {}

    /// An answer that runs the function.
    template <class F> Alert &Answer(ns::String title, UIAlertActionStyle style, const F &function) {
        controller_.addAction(ui::AlertAction::actionWithTitle(
            title, style, objc::MakeBlock<void(ui::AlertAction)>([function](ui::AlertAction) { function(); })));
        return *this;
    }
    /// The answer that only closes the alert.
    Alert &Cancel(ns::String title) {
        controller_.addAction(ui::AlertAction::actionWithTitle(title, UIAlertActionStyleCancel, nullptr));
        return *this;
    }
    /// Over all that the key window presents.
    void Present() const {
        PresentOnTop(controller_, nullptr);
    }

  private:
    ui::AlertController controller_;
};

} // namespace corvel
