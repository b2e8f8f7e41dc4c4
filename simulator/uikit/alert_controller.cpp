#include "uikit/alert_controller.hpp"

#include "runtime/autorelease.hpp"
#include "runtime/block_function.hpp"
#include "runtime/exception.hpp"
#include "runtime/native_class.hpp"
#include "uikit/alert_view.hpp"
#include "uikit/array.hpp"
#include "uikit/view.hpp"

#include <algorithm>

namespace sim {
namespace {

using ui::AlertAction;
using ui::AlertController;

/// UIModalTransitionStyleCrossDissolve.
constexpr long kCrossDissolve = 2;

objc::Ref<ns::String> CopyOf(ns::String text) {
    return objc::Ref<ns::String>::Adopt(objc::Send<"copy", ns::String>(text));
}

// Actions.

AlertAction ActionWithTitle(objc::Object, objc::SEL, ns::String title, ui::AlertActionStyle style,
                            objc::Block<void(AlertAction)> handler) {
    const auto action = ns::New<AlertAction>();
    AlertActionState &state = AlertActionStateOf(action);
    state.title = CopyOf(title);
    state.style = style;
    state.handler = FunctionOf(handler);
    return Autoreleased(action);
}

ns::String ActionTitle(AlertAction self, objc::SEL) {
    return AlertActionStateOf(self).title;
}

ui::AlertActionStyle ActionStyle(AlertAction self, objc::SEL) {
    return AlertActionStateOf(self).style;
}

bool IsEnabled(AlertAction self, objc::SEL) {
    return AlertActionStateOf(self).enabled;
}

void SetEnabled(AlertAction self, objc::SEL, bool enabled) {
    AlertActionStateOf(self).enabled = enabled;
    SetNeedsLayout(AlertActionStateOf(self).view);
}

// The controller.

/// Lets a view that shows the alert take in what changed.
void Changed(AlertController self) {
    if (const auto view = objc::Send<"viewIfLoaded", ui::View>(self)) {
        FillAlertView(view, self);
    }
}

AlertController AlertWithTitle(objc::Object, objc::SEL, ns::String title, ns::String message,
                               ui::AlertControllerStyle style) {
    if (style != ui::AlertControllerStyle::kAlert) {
        RaiseException("NSInvalidArgumentException", "this phone shows alerts, no action sheets");
    }
    const auto alert = Autoreleased(ns::New<AlertController>());
    objc::Send<"setTitle:", void>(alert, title);
    AlertStateOf(alert).message = CopyOf(message);
    alert.setModalPresentationStyle(ui::ModalPresentationStyle::kOverFullScreen);
    objc::Send<"setModalTransitionStyle:", void>(alert, kCrossDissolve);
    return alert;
}

void SetTitle(AlertController self, objc::SEL, ns::String title) {
    objc::SendSuper<"setTitle:", void>(ui::ViewController{self.pointer}, title);
    Changed(self);
}

ns::String Title(AlertController self, objc::SEL) {
    return objc::SendSuper<"title", ns::String>(ui::ViewController{self.pointer});
}

ns::String Message(AlertController self, objc::SEL) {
    return AlertStateOf(self).message;
}

void SetMessage(AlertController self, objc::SEL, ns::String message) {
    AlertStateOf(self).message = CopyOf(message);
    Changed(self);
}

ns::Array Actions(AlertController self, objc::SEL) {
    return ArrayOf(AlertStateOf(self).actions);
}

void AddAction(AlertController self, objc::SEL, AlertAction action) {
    std::vector<objc::Ref<AlertAction>> &actions = AlertStateOf(self).actions;
    const auto cancels = [](const objc::Ref<AlertAction> &one) {
        return AlertActionStateOf(one).style == ui::AlertActionStyle::kCancel;
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

AlertAction PreferredAction(AlertController self, objc::SEL) {
    return AlertStateOf(self).preferred;
}

void SetPreferredAction(AlertController self, objc::SEL, AlertAction action) {
    AlertStateOf(self).preferred = action;
    Changed(self);
}

ui::AlertControllerStyle PreferredStyle(AlertController, objc::SEL) {
    return ui::AlertControllerStyle::kAlert;
}

void LoadView(AlertController self, objc::SEL) {
    const objc::Ref<ui::View> view = MakeAlertView();
    FillAlertView(view, self);
    objc::Send<"setView:", void>(self, view.get());
}

void Dealloc(AlertController self, objc::SEL selector) {
    for (const objc::Ref<AlertAction> &action : AlertStateOf(self).actions) {
        AlertActionStateOf(action).view = nullptr;
    }
    if (const auto view = objc::Send<"viewIfLoaded", ui::View>(self)) {
        ForgetAlert(view);
    }
    detail::Dealloc<AlertState>(self.pointer, selector);
}

} // namespace

AlertState &AlertStateOf(AlertController alert) {
    return StateOf<AlertState>(alert);
}

AlertActionState &AlertActionStateOf(AlertAction action) {
    return StateOf<AlertActionState>(action);
}

void ChooseAlertAction(AlertController alert, AlertAction action) {
    if (objc::Send<"isBeingDismissed", bool>(alert)) {
        return; // one alert takes one answer
    }
    const objc::Ref<AlertAction> chosen = action;
    alert.dismissViewControllerAnimated(true, objc::MakeBlock<void()>([chosen] {
                                            if (const auto handler = AlertActionStateOf(chosen).handler) {
                                                handler(chosen);
                                            }
                                        }));
}

void RegisterAlertController() {
    RegisterAlertView();
    const objc::MethodEntry actionMethods[] = {
        objc::MethodNamed<"title", &ActionTitle>(),
        objc::MethodNamed<"style", &ActionStyle>(),
        objc::MethodNamed<"isEnabled", &IsEnabled>(),
        objc::MethodNamed<"setEnabled:", &SetEnabled>(),
    };
    const objc::MethodEntry actionClassMethods[] = {
        objc::MethodNamed<"actionWithTitle:style:handler:", &ActionWithTitle>(),
    };
    RegisterClassWithState<AlertActionState>("UIAlertAction", "NSObject", actionMethods, actionClassMethods);
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"dealloc", &Dealloc>(),
        objc::MethodNamed<"title", &Title>(),
        objc::MethodNamed<"setTitle:", &SetTitle>(),
        objc::MethodNamed<"message", &Message>(),
        objc::MethodNamed<"setMessage:", &SetMessage>(),
        objc::MethodNamed<"actions", &Actions>(),
        objc::MethodNamed<"addAction:", &AddAction>(),
        objc::MethodNamed<"preferredAction", &PreferredAction>(),
        objc::MethodNamed<"setPreferredAction:", &SetPreferredAction>(),
        objc::MethodNamed<"preferredStyle", &PreferredStyle>(),
        objc::MethodNamed<"loadView", &LoadView>(),
    };
    const objc::MethodEntry classMethods[] = {
        objc::MethodNamed<"alertControllerWithTitle:message:preferredStyle:", &AlertWithTitle>(),
    };
    RegisterClassWithState<AlertState>("UIAlertController", "UIViewController", methods, classMethods);
}

} // namespace sim
