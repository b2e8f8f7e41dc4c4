// What the app itself presents, and how the phone looks.

#include "apple/uikit/text_view.hpp"
#include "driver/commands/commands.hpp"
#include "driver/presented.hpp"
#include "script/values.hpp"
#include "uikit/application.hpp"
#include "uikit/color.hpp"

#include <map>

namespace sim::driver {
namespace {

using script::Bare;
using script::WordReader;

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

ui::AlertActionStyle ReadStyle(WordReader &words) {
    if (words.Take("cancel")) {
        return ui::AlertActionStyle::kCancel;
    }
    return words.Take("destructive") ? ui::AlertActionStyle::kDestructive : ui::AlertActionStyle::kDefault;
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
        title, ReadTextOrNone(words, "the message, or none"), ui::AlertControllerStyle::kAlert);
    while (!words.AtEnd()) {
        alert.addAction(ReadAction(words));
    }
    return {alert};
}

objc::Ref<ui::ViewController> MakeScreen() {
    const objc::Ref<ui::ViewController> screen = ns::New<ui::ViewController>();
    screen->setModalPresentationStyle(ui::ModalPresentationStyle::kOverFullScreen);
    screen->view().setBackgroundColor(ui::Color::systemBackgroundColor());
    return screen;
}

objc::Ref<ui::ViewController> ReadEditor(WordReader &words) {
    constexpr cg::Rect kFrame{{20, 100}, {350, 160}};
    const ns::String text = script::MakeString(words.QuotedText("the text"));
    const objc::Ref<ui::ViewController> screen = MakeScreen();
    const auto view = objc::Ref<ui::View>::Adopt(ns::Alloc<ui::TextView>().initWithFrame(kFrame));
    const auto editor = objc::As<ui::TextView>(view.get());
    editor.setText(text);
    editor.setFont(ui::Font::systemFontOfSize(17));
    screen->view().addSubview(editor);
    return screen;
}

} // namespace

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

void DoAppearance(Session &, WordReader &words) {
    static const std::map<std::string, bool> looks{{"light", false}, {"dark", true}};
    const std::string name = words.Name("light or dark");
    const auto look = looks.find(name);
    if (look == looks.end()) {
        words.Fail("expected light or dark, not " + name);
    }
    SetDarkAppearance(look->second);
}

} // namespace sim::driver
