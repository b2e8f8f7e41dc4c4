#include "hosts/live_room.hpp"

#include "apple/uikit/gesture_recognizer.hpp"
#include "hosts/video_view.hpp"
#include "hosts/view_building.hpp"
#include "runtime/native_class.hpp"
#include "uikit/application.hpp"

#include <algorithm>

namespace sim::hosts {
namespace {

constexpr const char *kTapListener = "SimLiveRoomTaps";
constexpr double kMargin = 12;
constexpr double kTop = 54;      // below the status bar
constexpr double kInputBar = 40; // height
constexpr double kBottom = 38;   // the home indicator's strip
constexpr double kChatWidth = 270;
constexpr double kChatHeight = 230;
constexpr double kBubbleGap = 6;

int taps = 0;

} // namespace

void RegisterLiveRoom() {
    RegisterVideoViews();
    Class(kTapListener, "NSObject").ClassMethod<"tapped:">([](ns::Object, ui::GestureRecognizer) { ++taps; });
}

int LiveRoom::Taps() {
    return taps;
}

cg::Rect LiveRoom::InputFrame() {
    return Box(kMargin, ScreenSize().height - kBottom - kInputBar, 210, kInputBar);
}

void LiveRoom::ShowLobby(ui::WindowScene scene) {
    window_ = objc::Ref<ui::Window>::Adopt(ns::Alloc<ui::Window>().initWithWindowScene(scene));
    window_->setFrame({{0, 0}, ScreenSize()});
    window_->setBackgroundColor(ui::Color::blackColor());
    window_->setRootViewController(ns::New<ui::ViewController>());
    DrawLobby();
    window_->makeKeyAndVisible();
}

template <class T> void LiveRoom::NewScreen() {
    if (screen_) {
        screen_->removeFromSuperview();
    }
    chat_ = nullptr;
    screen_ = AddNew<T>(window_->rootViewController().view(), {{0, 0}, ScreenSize()});
    screen_->addGestureRecognizer(objc::Ref<ui::TapGestureRecognizer>::Adopt(
        objc::As<ui::TapGestureRecognizer>(ns::Alloc<ui::TapGestureRecognizer>().initWithTarget(
            ns::Object{objc::AsObject(objc_getClass(kTapListener))}, objc::Selector<"tapped:">()))));
}

void LiveRoom::DrawLobby() {
    NewScreen<ui::View>();
    screen_->setBackgroundColor(Rgb(0x161823));
    const double width = ScreenSize().width;
    AddLabel(screen_, Box(0, kTop, width, 28), look_.appName,
             {.size = 18, .bold = true, .alignment = NSTextAlignmentCenter});
    constexpr const char *kRooms[] = {"今晚唱给你听", "山里的早市", "一起读书两小时",
                                      "夜钓直播",     "老街画像",   "猫咪食堂"};
    constexpr const char *kViewers[] = {"1.2万人", "8632人", "512人", "3041人", "207人", "1.9万人"};
    const double card = (width - 3 * kMargin) / 2;
    for (int i = 0; i < 6; ++i) {
        const int row = i / 2;
        const cg::Rect frame =
            Box(kMargin + (i % 2) * (card + kMargin), 100 + row * (card * 1.4 + kMargin), card, card * 1.4);
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

void LiveRoom::Enter(const std::string &title) {
    NewScreen<VideoView>();
    if (look_.wash) {
        AddBox(screen_, screen_->bounds(), Rgb(*look_.wash, 0.25), 0);
    }
    DrawTopBar(title);
    const cg::Size size = ScreenSize();
    const double bottom = size.height - kBottom - kInputBar - kMargin;
    chat_ = AddBox(screen_, Box(kMargin, bottom - kChatHeight, kChatWidth, kChatHeight), ui::Color::clearColor(), 0);
    chat_->setClipsToBounds(true);
    DrawInputBar();
    Say("", look_.welcome, false);
    for (const auto &[who, words] : look_.chatter) {
        Say(who, words, false);
    }
}

void LiveRoom::DrawTopBar(const std::string &title) {
    const ui::View anchor = AddBox(screen_, Box(kMargin, kTop, 190, 40), Rgb(0x000000, 0.35), 20);
    const ui::View face = AddBox(anchor, Box(3, 3, 34, 34), Rgb(0xF2C6A0), 17);
    AddLabel(face, Box(0, 0, 34, 34), look_.face, {.size = 15, .bold = true, .alignment = NSTextAlignmentCenter});
    AddLabel(anchor, Box(43, 4, 92, 18), look_.anchor, {.size = 13, .bold = true});
    AddLabel(anchor, Box(43, 21, 92, 15), look_.likes, {.size = 10, .color = Rgb(0xFFFFFF, 0.75)});
    const ui::View follow = AddBox(anchor, Box(138, 7, 46, 26), Rgb(look_.accent), 13);
    AddLabel(follow, Box(0, 0, 46, 26), look_.follow, {.size = 12, .bold = true, .alignment = NSTextAlignmentCenter});
    const double width = ScreenSize().width;
    const ui::View viewers = AddBox(screen_, Box(width - kMargin - 64, kTop + 6, 64, 28), Rgb(0x000000, 0.35), 14);
    AddLabel(viewers, Box(0, 0, 64, 28), "1.2万", {.size = 12, .alignment = NSTextAlignmentCenter});
    if (!title.empty()) {
        constexpr double kLongest = 300;
        const ui::View tag = AddBox(screen_, {}, Rgb(0x000000, 0.25), 11);
        const ui::Label label = AddLabel(tag, {}, "房间 " + title, {.size = 11, .color = Rgb(0xFFFFFF, 0.85)});
        const double fitted = std::min(label.sizeThatFits({kLongest, 22}).width, kLongest);
        tag.setFrame(Box(kMargin, kTop + 48, fitted + 20, 22));
        label.setFrame(Box(10, 0, fitted, 22));
    }
}

void LiveRoom::DrawInputBar() {
    const cg::Size size = ScreenSize();
    const double y = InputFrame().origin.y;
    const ui::View input = AddBox(screen_, InputFrame(), Rgb(0x000000, 0.4), kInputBar / 2);
    AddLabel(input, Box(16, 0, 180, kInputBar), look_.placeholder, {.size = 14, .color = Rgb(0xFFFFFF, 0.6)});
    for (std::size_t i = 0; i < look_.buttons.size(); ++i) {
        const ui::View button = AddBox(
            screen_,
            Box(size.width - kMargin - kInputBar - static_cast<double>(i) * (kInputBar + 8), y, kInputBar, kInputBar),
            i == 0 ? Rgb(look_.accent) : Rgb(0x000000, 0.4), kInputBar / 2);
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
    bubble.setFrame(Box(0, kChatHeight - size.height, size.width, size.height));
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
