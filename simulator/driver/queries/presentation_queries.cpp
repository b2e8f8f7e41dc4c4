// View controllers and alerts that are presented.

#include "driver/presented.hpp"
#include "driver/queries/queries.hpp"
#include "runtime/native_class.hpp"
#include "script/values.hpp"
#include "uikit/alert_controller.hpp"

namespace sim::driver {
namespace {

using script::Answer;
using script::Bare;
using script::Fact;
using script::WordReader;

std::string StyleName(ui::AlertActionStyle style) {
    switch (style) {
    case ui::AlertActionStyle::kDefault:
        return "default";
    case ui::AlertActionStyle::kCancel:
        return "cancel";
    case ui::AlertActionStyle::kDestructive:
        return "destructive";
    }
    return std::to_string(static_cast<long>(style));
}

script::Word TextOrNone(ns::String text) {
    return text ? script::Text(script::TextOf(text)) : Bare("none");
}

ns::String TitleOf(ui::AlertController alert) {
    return objc::Send<"title", ns::String>(alert);
}

/// All in one fact, so that a script can compare their order.
Fact Actions(ui::AlertController alert) {
    Fact fact;
    for (const objc::Ref<ui::AlertAction> &action : AlertStateOf(alert).actions) {
        const AlertActionState &state = AlertActionStateOf(action);
        fact.push_back(TextOrNone(state.title));
        fact.push_back(Bare(StyleName(state.style)));
        if (!state.enabled) {
            fact.push_back(Bare("disabled"));
        }
    }
    return fact;
}

} // namespace

Answer AskPresented(Session &, WordReader &) {
    Answer answer;
    for (const ui::ViewController controller : PresentedControllers()) {
        answer.push_back({Bare(class_getName(objc::object_getClass(controller.pointer))), Bare("style"),
                          Bare(std::to_string(objc::Send<"modalPresentationStyle", long>(controller)))});
    }
    return answer;
}

Answer AskAlerts(Session &, WordReader &) {
    Answer answer;
    for (const ui::AlertController alert : PresentedAlerts()) {
        answer.push_back({TextOrNone(TitleOf(alert))});
    }
    return answer;
}

Answer AskAlert(Session &, WordReader &words) {
    const std::vector<ui::AlertController> alerts = PresentedAlerts();
    if (alerts.empty()) {
        words.Rest();
        return {};
    }
    const ui::AlertController alert = alerts.back();
    const ns::String message = AlertStateOf(alert).message;
    if (words.Take("actions")) {
        return {Actions(alert)};
    }
    if (words.Take("title")) {
        return {{TextOrNone(TitleOf(alert))}};
    }
    if (words.Take("message")) {
        return words.Take("length") ? Answer{{Bare(std::to_string(message.length()))}} : Answer{{TextOrNone(message)}};
    }
    return {{TextOrNone(TitleOf(alert)), TextOrNone(message)}};
}

} // namespace sim::driver
