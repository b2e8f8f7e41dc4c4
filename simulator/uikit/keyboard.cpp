#include "uikit/keyboard.hpp"

#include "apple/foundation/number.hpp"
#include "apple/uikit/keyboard.hpp"
#include "apple/uikit/window.hpp"
#include "runtime/clock.hpp"
#include "runtime/lasting.hpp"
#include "runtime/native_class.hpp"
#include "uikit/animation.hpp"
#include "uikit/application.hpp"
#include "uikit/classes.hpp"
#include "uikit/keyboard_keys.hpp"
#include "uikit/responder.hpp"
#include "uikit/screen.hpp"
#include "uikit/text_input.hpp"

#include <algorithm>

extern "C" {
extern const ns::String UIKeyboardDidShowNotification;
extern const ns::String UIKeyboardDidHideNotification;
extern const ns::String UIKeyboardWillChangeFrameNotification;
extern const ns::String UIKeyboardDidChangeFrameNotification;
extern const ns::String UIKeyboardFrameBeginUserInfoKey;
extern const ns::String UIKeyboardAnimationCurveUserInfoKey;
extern const ns::String UIKeyboardIsLocalUserInfoKey;
}

namespace sim {
namespace {

constexpr double kWindowLevel = 10'000'001; // above every window of an app
constexpr int kKeyboardCurve = 7;           // a UIViewAnimationCurve without a public name

/// Above all windows, but only the keyboard in it takes touches.
struct KeyboardWindow : ui::Window {
    using ui::Window::Window;
    static constexpr const char *kClassName = "UIRemoteKeyboardWindow";
};

struct Keys : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = kKeysClass;
};

struct Keyboard {
    std::optional<double> height; // of the keys; the screen's for their kind unless set
    double duration = 0.25;
    bool up = false;
    cg::Rect frame;                   // where it is going to be
    objc::Ref<KeyboardWindow> window; // while any of it can be seen
    objc::Ref<ui::View> panel;        // keys and accessory
    objc::Ref<Keys> keys;
    objc::Ref<ui::View> accessory;
    long movement = 0; // counts movements: an older one must not finish after a newer one
};

Keyboard &Shared() {
    return Lasting<Keyboard>();
}

/// What a notification carries.
ns::Dictionary Info(cg::Rect begin, cg::Rect end) {
    const auto info = Autoreleased(ns::New<ns::MutableDictionary>());
    const auto rect = [](cg::Rect frame) { return objc::SendClass<ui::Value, "valueWithCGRect:", ui::Value>(frame); };
    info.setObject(rect(begin), UIKeyboardFrameBeginUserInfoKey);
    info.setObject(rect(end), UIKeyboardFrameEndUserInfoKey);
    info.setObject(ns::Number::numberWithDouble(Shared().duration), UIKeyboardAnimationDurationUserInfoKey);
    info.setObject(ns::Number::numberWithInt(kKeyboardCurve), UIKeyboardAnimationCurveUserInfoKey);
    info.setObject(ns::Number::numberWithBool(true), UIKeyboardIsLocalUserInfoKey);
    return info;
}

void Post(ns::String name, ns::Dictionary info) {
    objc::Send<"postNotificationName:object:userInfo:", void>(ns::NotificationCenter::defaultCenter(), name,
                                                              ns::Object{}, info);
}

cg::Rect BelowScreen(double height) {
    return {{0, ScreenSize().height}, {ScreenSize().width, height}};
}

/// Makes the window and the keys when they are missing, and puts the accessory view on top of the keys.
void Assemble(ui::View accessory, cg::Rect start) {
    Keyboard &keyboard = Shared();
    if (!keyboard.window) {
        const cg::Rect screen{{}, ScreenSize()};
        keyboard.window = ui::MakeView<KeyboardWindow>(screen);
        keyboard.window->setWindowLevel(kWindowLevel);
        keyboard.panel = ui::MakeView<ui::View>(start);
        keyboard.keys = ns::New<Keys>();
        keyboard.panel->addSubview(keyboard.keys);
        keyboard.window->addSubview(keyboard.panel);
        keyboard.window->setHidden(false);
    }
    if (!(keyboard.accessory.get() == accessory)) {
        keyboard.accessory->removeFromSuperview();
        keyboard.accessory = accessory;
        keyboard.panel->addSubview(accessory);
    }
}

void Disassemble() {
    Keyboard &keyboard = Shared();
    keyboard.accessory->removeFromSuperview();
    keyboard.window->setHidden(true);
    keyboard.accessory = nullptr;
    keyboard.keys = nullptr;
    keyboard.panel = nullptr;
    keyboard.window = nullptr;
}

void MovePanel(cg::Rect frame) {
    const Keyboard &keyboard = Shared();
    const double above = keyboard.accessory ? keyboard.accessory->frame().size.height : 0;
    keyboard.panel->setFrame(frame);
    keyboard.keys->setFrame({{0, above}, {frame.size.width, std::max(frame.size.height - above, 0.0)}});
}

/// Announces the movement, makes it, and announces its end.
void Move(cg::Rect begin, cg::Rect end, ns::String will, ns::String did, const std::function<void()> &after) {
    Keyboard &keyboard = Shared();
    const long movement = ++keyboard.movement;
    const auto info = objc::Ref<ns::Dictionary>(Info(begin, end));
    Post(UIKeyboardWillChangeFrameNotification, info);
    Post(will, info);
    if (keyboard.movement != movement) {
        return; // an observer has started another movement
    }
    const objc::Ref<ns::String> ended = did;
    Animate(
        {.duration = keyboard.duration, .options = UIViewAnimationOptionAllowUserInteraction},
        [end] { MovePanel(end); },
        [=](bool) {
            if (Shared().movement == movement) {
                after();
                Post(UIKeyboardDidChangeFrameNotification, info);
                Post(ended, info);
            }
        });
}

void Show(ui::Responder first) {
    Keyboard &keyboard = Shared();
    const auto accessory = objc::Send<"inputAccessoryView", ui::View>(first);
    const double above = accessory ? accessory.frame().size.height : 0;
    const KeyHeights heights = ScreenKeyHeights();
    const double keys = IsNumberPad(first) ? heights.numberPad : heights.letters;
    const double height = keyboard.height.value_or(keys) + above;
    const cg::Size screen = ScreenSize();
    const cg::Rect begin = keyboard.up ? keyboard.frame : BelowScreen(height);
    const cg::Rect end{{0, screen.height - height}, {screen.width, height}};
    keyboard.up = true;
    keyboard.frame = end;
    ShowKeysFor(first);
    WithoutAnimation([&] {
        Assemble(accessory, begin);
        if (accessory) {
            accessory.setFrame({{}, {screen.width, above}});
        }
        MovePanel({begin.origin, end.size});
    });
    Move(begin, end, UIKeyboardWillShowNotification, UIKeyboardDidShowNotification, [] {});
}

void Hide() {
    Keyboard &keyboard = Shared();
    const cg::Rect begin = keyboard.frame;
    keyboard.up = false;
    keyboard.frame = BelowScreen(begin.size.height);
    Move(begin, keyboard.frame, UIKeyboardWillHideNotification, UIKeyboardDidHideNotification, &Disassemble);
}

} // namespace

void DefineKeyboard() {
    auto window = Class(KeyboardWindow::kClassName, "UIWindow");
    window.Method<"hitTest:withEvent:">([](ui::Window self, cg::Point point, ui::Event event) {
        const auto hit = objc::SendSuper<"hitTest:withEvent:", ui::View>(self, point, event);
        return hit == self ? ui::View{} : hit;
    });
    window.Method<"canBecomeKeyWindow">([](ui::Window) { return false; });

    // Rectangles in NSValues. Foundation's own kind is built in the same way.
    auto value = Class<>::Existing("NSValue");
    value.ClassMethod<"valueWithCGRect:">(
        [](ui::Value, cg::Rect rect) { return objc::SendClass<ui::Value, "valueWithRect:", ui::Value>(rect); });
    value.Method<"CGRectValue">([](ui::Value self) { return objc::Send<"rectValue", cg::Rect>(self); });
}

void KeyboardFollows(ui::Responder first) {
    if (TextInputOf(first) != nullptr) {
        Show(first);
    } else if (Shared().up) {
        Hide();
    }
}

void KeyboardMakesWay() {
    const Keyboard &keyboard = Shared();
    if (!keyboard.up) {
        return;
    }
    const cg::Rect begin = keyboard.frame;
    const auto info = objc::Ref<ns::Dictionary>(Info(begin, BelowScreen(begin.size.height)));
    Post(UIKeyboardWillChangeFrameNotification, info);
    Post(UIKeyboardWillHideNotification, info);
    Post(UIKeyboardDidChangeFrameNotification, info);
    Post(UIKeyboardDidHideNotification, info);
}

void KeyboardComesBack() {
    Keyboard &keyboard = Shared();
    if (!keyboard.up) {
        if (keyboard.window) { // on its way down
            ++keyboard.movement;
            Disassemble();
        }
        return;
    }
    keyboard.frame = BelowScreen(keyboard.frame.size.height);
    Show(FirstResponder());
}

void SetKeyboardHeight(double height) {
    Shared().height = height;
    if (Shared().up) {
        KeyboardFollows(FirstResponder());
    }
}

void SetKeyboardDuration(double seconds) {
    Shared().duration = seconds;
}

std::optional<cg::Rect> KeyboardFrame() {
    return Shared().up ? std::optional(Shared().frame) : std::nullopt;
}

} // namespace sim
