#pragma once
// UIAlertController and its actions.

#include "apple/foundation/string.hpp"
#include "apple/uikit/view_controller.hpp"

namespace ui {

/// UIAlertActionStyle.
enum class AlertActionStyle : long { kDefault = 0, kCancel = 1, kDestructive = 2 };
struct AlertAction : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIAlertAction";

    static AlertAction actionWithTitle(ns::String title, AlertActionStyle style,
                                       objc::Block<void(AlertAction)> handler) {
        return objc::SendClass<AlertAction, "actionWithTitle:style:handler:", AlertAction>(title, style, handler);
    }
};

/// UIAlertControllerStyle.
enum class AlertControllerStyle : long { kAlert = 1 };
struct AlertController : ViewController {
    using ViewController::ViewController;
    static constexpr const char *kClassName = "UIAlertController";

    static AlertController alertControllerWithTitle(ns::String title, ns::String message, AlertControllerStyle style) {
        return objc::SendClass<AlertController, "alertControllerWithTitle:message:preferredStyle:", AlertController>(
            title, message, style);
    }
    void addAction(AlertAction action) const {
        objc::Send<"addAction:", void>(*this, action);
    }
};

} // namespace ui
