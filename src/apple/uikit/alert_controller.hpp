#pragma once
// UIAlertController and its actions.

#include "apple/foundation/string.hpp"
#include "apple/uikit/view_controller.hpp"

enum UIAlertActionStyle : long {
    UIAlertActionStyleDefault = 0,
    UIAlertActionStyleCancel = 1,
    UIAlertActionStyleDestructive = 2,
};

enum UIAlertControllerStyle : long { UIAlertControllerStyleAlert = 1 };

namespace ui {

struct AlertAction : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIAlertAction";

    static AlertAction actionWithTitle(ns::String title, UIAlertActionStyle style,
                                       objc::Block<void(AlertAction)> handler) {
        return objc::SendClass<AlertAction, "actionWithTitle:style:handler:", AlertAction>(title, style, handler);
    }
};

struct AlertController : ViewController {
    using ViewController::ViewController;
    static constexpr const char *kClassName = "UIAlertController";

    static AlertController alertControllerWithTitle(ns::String title, ns::String message,
                                                    UIAlertControllerStyle style) {
        return objc::SendClass<AlertController, "alertControllerWithTitle:message:preferredStyle:", AlertController>(
            title, message, style);
    }
    void addAction(AlertAction action) const {
        objc::Send<"addAction:", void>(*this, action);
    }
};

} // namespace ui
