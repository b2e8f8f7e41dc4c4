#include "hosts/live_room.hpp"

#include "apple/uikit/gesture_recognizer.hpp"
#include "hosts/video_view.hpp"
#include "hosts/view_building.hpp"
#include "runtime/native_class.hpp"
#include "uikit/application.hpp"
#include "uikit/autoresizing.hpp"
#include "uikit/screen.hpp"
#include "uikit/status_bar.hpp"
#include "uikit/view_state.hpp"

#include <algorithm>

namespace sim::hosts {
namespace {

constexpr const char *kTapListener = "SimLiveRoomTaps";
constexpr double kMargin = 12;
constexpr double kBelowTop = 7;    // between the status bar and the app's first row
constexpr double kAboveBottom = 4; // between the home indicator's strip and the input bar
constexpr double kTopBar = 78;     // height, with the room's name
constexpr double kInputBar = 40;   // height
constexpr double kInputWidth = 210;
constexpr double kButtonGap = 8;
constexpr double kChatWidth = 270;
constexpr double kChatHeight = 230;
constexpr double kBubbleGap = 6;

int taps = 0;

struct RoomController : ui::ViewController {
    using ui::ViewController::ViewController;
    static constexpr const char *kClassName = "SimLiveRoomController";
};

struct RoomControllerState {
    bool turns = false;
    std::function<void()> layOut;
};

/// Lets a view follow the size of what it lies in.
void Stretch(ui::View view) {
    ViewStateOf(view).autoresizingMask = UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight;
}

RoomArea PresentArea() {
    const cg::Size size = ScreenSize();
    const ui::EdgeInsets safe = ScreenSafeArea();
    return {safe.left + kMargin, safe.top + kBelowTop, size.width - safe.right - kMargin,
            size.height - safe.bottom - kAboveBottom};
}

/// The app's screens are dark, so the status bar on them is light.
void RegisterController() {
    constexpr unsigned long kPortrait = 2;          // UIInterfaceOrientationMaskPortrait
    constexpr unsigned long kAllButUpsideDown = 26; // UIInterfaceOrientationMaskAllButUpsideDown
    auto controller = Class<RoomControllerState>(RoomController::kClassName, "UIViewController");
    controller.Method<"supportedInterfaceOrientations">(
        [](const RoomControllerState &state) { return state.turns ? kAllButUpsideDown : kPortrait; });
    controller.Method<"preferredStatusBarStyle">([](RoomController) { return StatusBarStyle::kLightContent; });
    controller.Method<"viewDidLayoutSubviews">([](const RoomControllerState &state) {
        if (state.layOut) {
            state.layOut();
        }
    });
}

} // namespace

void RegisterLiveRoom() {
    RegisterVideoViews();
    RegisterController();
    Class(kTapListener, "NSObject").ClassMethod<"tapped:">([](ns::Object, ui::GestureRecognizer) { ++taps; });
}

int LiveRoom::Taps() {
    return taps;
}

cg::Rect LiveRoom::InputFrame(const RoomArea &area) const {
    const double buttons = static_cast<double>(look_.buttons.size()) * (kInputBar + kButtonGap);
    return Box(area.left, area.bottom - kInputBar, std::min(kInputWidth, area.right - area.left - buttons), kInputBar);
}

void LiveRoom::PlaceAtInput(ui::View view) {
    Place(view, [this](const RoomArea &area) { return InputFrame(area); });
}

void LiveRoom::Place(ui::View view, Placement frame) {
    view.setFrame(frame(PresentArea()));
    placed_.push_back({objc::WeakRef<ui::View>(view), std::move(frame)});
}

void LiveRoom::LayOut() {
    const RoomArea area = PresentArea();
    for (const Placed &placed : placed_) {
        if (const objc::Ref<ui::View> view = placed.view.Lock()) {
            view->setFrame(placed.frame(area));
        }
    }
}

void LiveRoom::LetTurn(bool turns) {
    StateOf<RoomControllerState>(window_->rootViewController()).turns = turns;
    objc::SendClass<ui::ViewController, "attemptRotationToDeviceOrientation", void>();
}

void LiveRoom::ShowLobby(ui::WindowScene scene) {
    window_ = objc::Ref<ui::Window>::Adopt(ns::Alloc<ui::Window>().initWithWindowScene(scene));
    window_->setFrame({{0, 0}, ScreenSize()});
    window_->setBackgroundColor(ui::Color::blackColor());
    const auto controller = ns::New<RoomController>();
    StateOf<RoomControllerState>(controller).layOut = [this] { LayOut(); };
    window_->setRootViewController(controller);
    DrawLobby();
    window_->makeKeyAndVisible();
}

template <class T> void LiveRoom::NewScreen() {
    if (screen_) {
        screen_->removeFromSuperview();
    }
    chat_ = nullptr;
    placed_.clear();
    screen_ = AddNew<T>(window_->rootViewController().view(), {{0, 0}, ScreenSize()});
    Stretch(screen_);
    screen_->addGestureRecognizer(objc::Ref<ui::TapGestureRecognizer>::Adopt(
        objc::As<ui::TapGestureRecognizer>(ns::Alloc<ui::TapGestureRecognizer>().initWithTarget(
            ns::Object{objc::AsObject(objc_getClass(kTapListener))}, objc::Selector<"tapped:">()))));
}

void LiveRoom::DrawLobby() {
    NewScreen<ui::View>();
    screen_->setBackgroundColor(Rgb(0x161823));
    const double width = ScreenSize().width;
    const double top = PresentArea().top;
    AddLabel(screen_, Box(0, top, width, 28), look_.appName,
             {.size = 18, .bold = true, .alignment = NSTextAlignmentCenter});
    constexpr const char *kRooms[] = {"今晚唱给你听", "山里的早市", "一起读书两小时",
                                      "夜钓直播",     "老街画像",   "猫咪食堂"};
    constexpr const char *kViewers[] = {"1.2万人", "8632人", "512人", "3041人", "207人", "1.9万人"};
    const double card = (width - 3 * kMargin) / 2;
    for (int i = 0; i < 6; ++i) {
        const int row = i / 2;
        const cg::Rect frame =
            Box(kMargin + (i % 2) * (card + kMargin), top + 46 + row * (card * 1.4 + kMargin), card, card * 1.4);
        const ui::View view = AddNew<PosterView>(screen_, frame);
        view.layer().setCornerRadius(10);
        view.setClipsToBounds(true);
        AddLabel(view, Box(10, frame.size.height - 48, card - 20, 20), kRooms[i], {.size = 14, .bold = true});
        AddLabel(view, Box(10, frame.size.height - 27, card - 20, 16), kViewers[i],
                 {.size = 11, .color = Rgb(0xFFFFFF, 0.7)});
        const ui::View badge = AddBox(view, Box(8, 8, 44, 18), Rgb(look_.accent), 4);
        AddLabel(badge, Box(0, 0, 44, 18), "直播中", {.size = 10, .bold = true, .alignment = NSTextAlignmentCenter});
    }
}

void LiveRoom::Leave() {
    if (!window_) {
        return;
    }
    LetTurn(false);
    DrawLobby();
}

void LiveRoom::Enter(const std::string &title) {
    if (!window_) {
        return;
    }
    LetTurn(true);
    NewScreen<VideoView>();
    if (look_.wash) {
        Stretch(AddBox(screen_, screen_->bounds(), Rgb(*look_.wash, 0.25), 0));
    }
    DrawTopBar(title);
    chat_ = AddBox(screen_, {}, ui::Color::clearColor(), 0);
    chat_->setClipsToBounds(true);
    Place(chat_, [](const RoomArea &area) {
        const double bottom = area.bottom - kInputBar - kMargin;
        const double height = std::min(kChatHeight, bottom - area.top - kTopBar);
        return Box(area.left, bottom - height, kChatWidth, height);
    });
    DrawInputBar();
    Say("", look_.welcome, false);
    for (const auto &[who, words] : look_.chatter) {
        Say(who, words, false);
    }
}

void LiveRoom::DrawTopBar(const std::string &title) {
    const ui::View anchor = AddBox(screen_, {}, Rgb(0x000000, 0.35), 20);
    Place(anchor, [](const RoomArea &area) { return Box(area.left, area.top, 190, 40); });
    const ui::View face = AddBox(anchor, Box(3, 3, 34, 34), Rgb(0xF2C6A0), 17);
    AddLabel(face, Box(0, 0, 34, 34), look_.face, {.size = 15, .bold = true, .alignment = NSTextAlignmentCenter});
    AddLabel(anchor, Box(43, 4, 92, 18), look_.anchor, {.size = 13, .bold = true});
    AddLabel(anchor, Box(43, 21, 92, 15), look_.likes, {.size = 10, .color = Rgb(0xFFFFFF, 0.75)});
    const ui::View follow = AddBox(anchor, Box(138, 7, 46, 26), Rgb(look_.accent), 13);
    AddLabel(follow, Box(0, 0, 46, 26), look_.follow, {.size = 12, .bold = true, .alignment = NSTextAlignmentCenter});
    const ui::View viewers = AddBox(screen_, {}, Rgb(0x000000, 0.35), 14);
    Place(viewers, [](const RoomArea &area) { return Box(area.right - 64, area.top + 6, 64, 28); });
    AddLabel(viewers, Box(0, 0, 64, 28), "1.2万", {.size = 12, .alignment = NSTextAlignmentCenter});
    if (!title.empty()) {
        constexpr double kLongest = 300;
        const ui::View tag = AddBox(screen_, {}, Rgb(0x000000, 0.25), 11);
        const ui::Label label = AddLabel(tag, {}, "房间 " + title, {.size = 11, .color = Rgb(0xFFFFFF, 0.85)});
        const double fitted = std::min(label.sizeThatFits({kLongest, 22}).width, kLongest);
        Place(tag, [fitted](const RoomArea &area) { return Box(area.left, area.top + 48, fitted + 20, 22); });
        label.setFrame(Box(10, 0, fitted, 22));
    }
}

void LiveRoom::DrawInputBar() {
    const ui::View input = AddBox(screen_, {}, Rgb(0x000000, 0.4), kInputBar / 2);
    PlaceAtInput(input);
    AddLabel(input, Box(16, 0, input.bounds().size.width - 30, kInputBar), look_.placeholder,
             {.size = 14, .color = Rgb(0xFFFFFF, 0.6)});
    for (std::size_t i = 0; i < look_.buttons.size(); ++i) {
        const ui::View button = AddBox(screen_, {}, i == 0 ? Rgb(look_.accent) : Rgb(0x000000, 0.4), kInputBar / 2);
        Place(button, [i](const RoomArea &area) {
            const double x = area.right - kInputBar - static_cast<double>(i) * (kInputBar + kButtonGap);
            return Box(x, area.bottom - kInputBar, kInputBar, kInputBar);
        });
        AddLabel(button, Box(0, 0, kInputBar, kInputBar), look_.buttons[i],
                 {.size = 15, .bold = true, .alignment = NSTextAlignmentCenter});
    }
}

void LiveRoom::Say(const std::string &who, const std::string &text, bool own) {
    const ui::View bubble = AddBox(chat_, {}, own ? Rgb(look_.accent, 0.55) : Rgb(0x000000, 0.35), 12);
    const ui::Label label = AddLabel(bubble, {}, who.empty() ? text : who + "：" + text, {.size = 14});
    label.setNumberOfLines(3);
    const cg::Size fitted = label.sizeThatFits({kChatWidth - 20, 1e6});
    const cg::Size size{std::min(fitted.width, kChatWidth - 20) + 20, fitted.height + 10};
    label.setFrame(Box(10, 5, size.width - 20, fitted.height));
    const ns::ArrayOf<ui::View> bubbles = chat_->subviews();
    for (const ui::View older : bubbles) {
        const cg::Point center = older.center();
        older.setCenter({center.x, center.y - size.height - kBubbleGap});
    }
    bubble.setFrame(Box(0, chat_->bounds().size.height - size.height, size.width, size.height));
    ViewStateOf(bubble).autoresizingMask = UIViewAutoresizingFlexibleTopMargin; // the chat grows and shrinks above
    const auto oldest = objc::As<ui::View>(bubbles.firstObject());
    if (oldest.frame().origin.y + oldest.frame().size.height < 0) {
        oldest.removeFromSuperview();
    }
}

void LiveRoom::AddComment(const std::string &text) {
    if (chat_) {
        Say("我", text, true);
    }
}

} // namespace sim::hosts
