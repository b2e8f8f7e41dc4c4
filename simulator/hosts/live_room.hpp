#pragma once
// The screen that every simulated app has: a lobby, and the live room with its video, its chat and its input bar.

#include "apple/uikit/window.hpp"
#include "objc/ref.hpp"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace sim::hosts {

/// How an app presents its rooms.
struct LiveRoomLook {
    std::string appName;                         // heads the lobby
    std::string placeholder;                     // in the input bar
    std::string anchor;                          // who streams
    unsigned accent;                             // 0xRRGGBB
    std::optional<unsigned> wash = std::nullopt; // the colour of another light over the video
    std::string face = "鹿";                     // stands for the anchor's portrait
    std::string welcome = "欢迎来到直播间！请文明发言，理性消费。";
    std::string follow = "关注";
    std::string likes = "2.6万本场点赞";
    /// What others have said already: name and words.
    std::vector<std::pair<std::string, std::string>> chatter = {{"阿泽", "来了来了"}, {"月光", "这首好听"}};
    std::vector<std::string> buttons = {"礼", "赞", "享"}; // from the right edge of the input bar's row
};

/// What an app's own screen may use, margins and the screen's safe area left out; the edges in points.
struct RoomArea {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

/// The lobby stands upright only; the room turns with the phone. An app that was launched without a scene shows
/// neither.
class LiveRoom {
  public:
    explicit LiveRoom(LiveRoomLook look) : look_(std::move(look)) {}
    /// Puts the lobby into a new key window of the scene.
    void ShowLobby(ui::WindowScene scene);
    /// Shows the room with this title (as the app words it) and an empty chat.
    void Enter(const std::string &title);
    /// Back to the lobby.
    void Leave();
    /// Adds the user's own comment to the chat; the oldest bubble goes when there is no more room.
    void AddComment(const std::string &text);
    /// Lays an input view of the app's own over the room's comment input, for as long as the room is shown.
    void PlaceAtInput(ui::View view);
    /// Taps that reached the app's own screen.
    static int Taps();
    /// The app's window; nil before the launch.
    ui::Window window() const {
        return window_;
    }
    /// The view of the room or lobby that is shown, for views of the app's own.
    ui::View screen() const {
        return screen_;
    }

  private:
    using Placement = std::function<cg::Rect(const RoomArea &area)>;
    struct Placed {
        objc::WeakRef<ui::View> view;
        Placement frame;
    };

    /// Replaces the screen by an empty one of this class.
    template <class T> void NewScreen();
    /// Gives the view this frame now and whenever the screen has turned.
    void Place(ui::View view, Placement frame);
    /// Places everything anew.
    void LayOut();
    /// Tells the controller whether its interface may turn.
    void LetTurn(bool turns);
    cg::Rect InputFrame(const RoomArea &area) const;
    void DrawLobby();
    void DrawTopBar(const std::string &title);
    void DrawInputBar();
    /// Adds a line of the chat, which scrolls up by its height.
    void Say(const std::string &who, const std::string &text, bool own);

    LiveRoomLook look_;
    objc::Ref<ui::Window> window_;
    objc::Ref<ui::View> screen_;
    objc::Ref<ui::View> chat_; // nil in the lobby
    std::vector<Placed> placed_;
};

/// Registers the classes of this screen. After UIKit's.
void RegisterLiveRoom();

} // namespace sim::hosts
