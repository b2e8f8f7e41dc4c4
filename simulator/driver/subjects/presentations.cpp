// What is presented: by the app, by the library, by the system.

#include "apple/uikit/text_view.hpp"
#include "driver/presented.hpp"
#include "driver/subjects/subjects.hpp"
#include "script/values.hpp"
#include "uikit/alert_controller.hpp"
#include "uikit/application.hpp"
#include "uikit/color_picker.hpp"

#include <algorithm>

namespace sim::driver {
namespace {

/// The controller that everything else of the app's screen stands on.
ui::ViewController TopController(const WordReader &words) {
    const std::vector<ui::Window> windows = WindowsOf(nullptr);
    ui::ViewController top = windows.empty() ? ui::ViewController{} : windows.front().rootViewController();
    while (const ui::ViewController next = top.presentedViewController()) {
        top = next;
    }
    if (!top) {
        words.Fail("the app has no screen to present on");
    }
    return top;
}

/// By UIAlertActionStyle.
constexpr const char *kStyles[] = {"default", "cancel", "destructive"};

/// The first style unless the words name another.
UIAlertActionStyle ReadStyle(WordReader &words) {
    const auto *const named = std::ranges::find_if(kStyles, [&words](const char *name) { return words.Take(name); });
    return static_cast<UIAlertActionStyle>(named == std::end(kStyles) ? 0 : named - std::begin(kStyles));
}

ns::String ReadTextOrNone(WordReader &words, const char *what) {
    return words.Take("none") ? ns::String{} : script::MakeString(words.QuotedText(what));
}

ui::AlertAction ReadAction(WordReader &words) {
    const std::string title = words.QuotedText("an action's title");
    return ui::AlertAction::actionWithTitle(script::MakeString(title), ReadStyle(words),
                                            objc::MakeBlock<void(ui::AlertAction)>([title](ui::AlertAction) {
                                                Say({Bare("answer"), script::Text(title)});
                                            }));
}

objc::Ref<ui::ViewController> ReadAlert(WordReader &words) {
    const ns::String title = ReadTextOrNone(words, "the title, or none");
    const auto alert = ui::AlertController::alertControllerWithTitle(
        title, ReadTextOrNone(words, "the message, or none"), UIAlertControllerStyleAlert);
    while (!words.AtEnd()) {
        alert.addAction(ReadAction(words));
    }
    return {alert};
}

objc::Ref<ui::ViewController> MakeScreen() {
    const objc::Ref<ui::ViewController> screen = ns::New<ui::ViewController>();
    screen->setModalPresentationStyle(UIModalPresentationOverFullScreen);
    screen->view().setBackgroundColor(ui::Color::systemBackgroundColor());
    return screen;
}

objc::Ref<ui::ViewController> ReadEditor(WordReader &words) {
    constexpr cg::Rect kFrame{{20, 100}, {350, 160}};
    const ns::String text = script::MakeString(words.QuotedText("the text"));
    const objc::Ref<ui::ViewController> screen = MakeScreen();
    const auto editor = ui::MakeView<ui::TextView>(kFrame);
    editor->setText(text);
    editor->setFont(ui::Font::systemFontOfSize(17));
    screen->view().addSubview(editor);
    return screen;
}

/// present screen | editor "TEXT" | alert "TITLE"|none "MESSAGE"|none ["ACTION" [cancel|destructive]]…
void DoPresent(Session &, WordReader &words) {
    objc::Ref<ui::ViewController> controller;
    if (words.Take("alert")) {
        controller = ReadAlert(words);
    } else if (words.Take("editor")) {
        controller = ReadEditor(words);
    } else {
        words.Expect("screen");
        controller = MakeScreen();
    }
    words.End();
    TopController(words).presentViewController(controller, true,
                                               objc::MakeBlock<void()>([] { Say({Bare("presented")}); }));
}

void DoDismiss(Session &, WordReader &words) {
    words.End();
    if (PresentedControllers().empty()) {
        words.Fail("nothing is presented");
    }
    TopController(words).dismissViewControllerAnimated(true, objc::MakeBlock<void()>([] { Say({Bare("dismissed")}); }));
}

double HexPart(const std::string &text, std::size_t at) {
    return static_cast<double>(std::stoul(text.substr(at, 2), nullptr, 16)) / 255;
}

ui::Color ReadColor(WordReader &words) {
    if (words.Take("grey")) {
        return ui::Color::colorWithWhite(words.Number("the whiteness, from 0 to 1"), 1);
    }
    const std::string text = words.Name("#RRGGBB or grey");
    constexpr std::size_t kLength = 7;
    if (text.size() != kLength || text.front() != '#' ||
        text.find_first_not_of("0123456789abcdefABCDEF", 1) != std::string::npos) {
        words.Fail("expected #RRGGBB or grey, not " + text);
    }
    return ui::Color::colorWithRed(HexPart(text, 1), HexPart(text, 3), HexPart(text, 5), 1);
}

/// pick #RRGGBB|grey W
void DoPick(Session &, WordReader &words) {
    const ui::Color color = ReadColor(words);
    words.End();
    const ui::ColorPickerViewController picker = PresentedColorPicker();
    if (!picker) {
        words.Fail("no colour picker is open");
    }
    ChooseColor(picker, color);
}

Word TextOrNone(ns::String text) {
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
        fact.push_back(Bare(kStyles[state.style]));
        if (!state.enabled) {
            fact.push_back(Bare("disabled"));
        }
    }
    return fact;
}

Answer AskPresented(Session &, WordReader &) {
    Answer answer;
    for (const ui::ViewController controller : PresentedControllers()) {
        answer.push_back({Bare(script::ClassName(controller)), Bare("style"),
                          Bare(objc::Send<"modalPresentationStyle", long>(controller))});
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
        return {{words.Take("length") ? Bare(message.length()) : TextOrNone(message)}};
    }
    return {{TextOrNone(TitleOf(alert)), TextOrNone(message)}};
}

constexpr Command kCommands[] = {{"present", &DoPresent}, {"dismiss", &DoDismiss}, {"pick", &DoPick}};
constexpr Query kQueries[] = {{"presented", &AskPresented}, {"alerts", &AskAlerts}, {"alert", &AskAlert}};

} // namespace

constinit const Subject kPresentations{kCommands, kQueries};

} // namespace sim::driver
