#include "uikit/alert_controller.hpp"

#include "runtime/block_function.hpp"
#include "runtime/exception.hpp"
#include "runtime/native_class.hpp"
#include "uikit/alert_view.hpp"
#include "uikit/array.hpp"
#include "uikit/classes.hpp"
#include "uikit/view.hpp"

#include <algorithm>

namespace sim {
namespace {

using ui::AlertAction;
using ui::AlertController;

/// Lets a view that shows the alert take in what changed.
void Changed(AlertController self) {
    if (const auto view = objc::Send<"viewIfLoaded", ui::View>(self)) {
        FillAlertView(view, self);
    }
}

objc::Ref<AlertController> AlertWithTitle(AlertController, ns::String title, ns::String message,
                                          UIAlertControllerStyle style) {
    if (style != UIAlertControllerStyleAlert) {
        RaiseException("NSInvalidArgumentException", "this phone shows alerts, no action sheets");
    }
    const auto alert = ns::New<AlertController>();
    objc::Send<"setTitle:", void>(alert.get(), title);
    AlertStateOf(alert).message = CopyOf(message);
    alert->setModalPresentationStyle(UIModalPresentationOverFullScreen);
    objc::Send<"setModalTransitionStyle:", void>(alert.get(), UIModalTransitionStyleCrossDissolve);
    return alert;
}

void AddAction(AlertController self, AlertAction action) {
    std::vector<objc::Ref<AlertAction>> &actions = AlertStateOf(self).actions;
    const auto cancels = [](const objc::Ref<AlertAction> &one) {
        return AlertActionStateOf(one).style == UIAlertActionStyleCancel;
    };
    if (!action) {
        RaiseException("NSInvalidArgumentException", "an alert's action must not be nil");
    }
    if (cancels(action) && std::ranges::any_of(actions, cancels)) {
        RaiseException("NSInternalInconsistencyException", "an alert has one action of the cancel style at most");
    }
    actions.emplace_back(action);
    Changed(self);
}

void DefineAction() {
    auto action = Class<AlertActionState>("UIAlertAction", "NSObject");
    action.ClassMethod<"actionWithTitle:style:handler:">(
        [](AlertAction, ns::String title, UIAlertActionStyle style, objc::Block<void(AlertAction)> handler) {
            const auto made = ns::New<AlertAction>();
            AlertActionState &state = AlertActionStateOf(made);
            state.title = CopyOf(title);
            state.style = style;
            state.handler = FunctionOf(handler);
            return made;
        });
    action.ReadOnly<"title", &AlertActionState::title>();
    action.ReadOnly<"style", &AlertActionState::style>();
    action.Property<"isEnabled", &AlertActionState::enabled>(
        [](const AlertActionState &state) { SetNeedsLayout(state.view); });
}

} // namespace

void DefineAlertController() {
    DefineAction();
    auto alert = Class<AlertState>("UIAlertController", "UIViewController");
    alert.ClassMethod<"alertControllerWithTitle:message:preferredStyle:", &AlertWithTitle>();
    alert.Dealloc([](AlertController self) {
        for (const objc::Ref<AlertAction> &action : AlertStateOf(self).actions) {
            AlertActionStateOf(action).view = nullptr;
        }
        if (const auto view = objc::Send<"viewIfLoaded", ui::View>(self)) {
            ForgetAlert(view);
        }
    });
    alert.Method<"title">([](ui::ViewController self) { return objc::SendSuper<"title", ns::String>(self); });
    alert.Method<"setTitle:">([](ui::ViewController self, ns::String title) {
        objc::SendSuper<"setTitle:", void>(self, title);
        Changed(objc::As<AlertController>(self));
    });
    alert.Property<"message", &AlertState::message, &Changed>();
    alert.Method<"actions">([](const AlertState &state) { return MakeArray(state.actions); });
    alert.Method<"addAction:", &AddAction>();
    alert.Property<"preferredAction", &AlertState::preferred, &Changed>();
    alert.Method<"preferredStyle">([](AlertController) { return UIAlertControllerStyleAlert; });
    alert.Method<"loadView">([](AlertController self) {
        const objc::Ref<ui::View> view = MakeAlertView();
        FillAlertView(view, self);
        objc::Send<"setView:", void>(self, view.get());
    });
}

AlertState &AlertStateOf(AlertController alert) {
    return StateOf<AlertState>(alert);
}

AlertActionState &AlertActionStateOf(AlertAction action) {
    return StateOf<AlertActionState>(action);
}

void ChooseAlertAction(AlertController alert, AlertAction action) {
    if (objc::Send<"isBeingDismissed", bool>(alert)) {
        return; // a second tap while the alert goes must not answer again
    }
    const objc::Ref<AlertAction> chosen = action;
    alert.dismissViewControllerAnimated(true, objc::MakeBlock<void()>([chosen] {
                                            if (const auto handler = AlertActionStateOf(chosen).handler) {
                                                handler(chosen);
                                            }
                                        }));
}

} // namespace sim
