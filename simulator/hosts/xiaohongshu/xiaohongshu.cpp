#include "hosts/xiaohongshu/xiaohongshu.hpp"

#include "hosts/invocation.hpp"
#include "hosts/objects.hpp"
#include "hosts/record.hpp"
#include "hosts/xiaohongshu/comment_classes.hpp"
#include "uikit/application.hpp"

namespace sim::hosts {
namespace {

using script::Bare;
using script::Fact;
using script::WordReader;

constexpr Kind kKinds[] = {
    {"decorate", "XYLivePlayDecorateView"},
    {"push-decorate", "XYLivePushDecorateView"},
    {"bar", "XYCommentBar"},
    {"search-bar", "XYSearchBar"},
    {"engine", "XYLiveImEngine"},
    {"push-engine", "XYLivePushEngine"},
    {"group", "NSObject"},
    {"controller", "UIViewController"},
    {"box", "UIView"},
};

class Xiaohongshu final : public Host {
  public:
    void RegisterClasses() override {
        xiaohongshu::RegisterCommentClasses();
    }

  private:
    LiveRoomLook Look() const override {
        return {.appName = "小红书直播",
                .placeholder = "和主播聊聊吧",
                .anchor = "栗子的衣橱",
                .accent = 0xFF2442,
                .wash = 0xD8A7B1,
                .face = "栗",
                .welcome = "欢迎来到直播间，友善发言，一起分享好物～",
                .follow = "+关注",
                .likes = "1.1万次赞",
                .chatter = {{"momo", "求上身图"}, {"小番茄", "这件有S码吗"}},
                .buttons = {"购", "心", "⋯"}};
    }

    const char *ClassOfKind(const std::string &kind) const override {
        return ClassOf(kKinds, kind);
    }

    bool OwnEvent(WordReader &words, Fact &fact) override {
        if (words.Take("enter")) {
            fact = Enter(words.QuotedText("the group of the room"));
        } else if (words.Take("leave")) {
            Leave();
        } else {
            return false;
        }
        return true;
    }

    /// A room as the app opens it: the overlay, the comment bar whose delegate it is, the messaging group.
    Fact Enter(const std::string &group) {
        room().Enter(group);
        Fact said;
        const auto decorate = objc::As<ui::View>(Make("decorate"));
        if (decorate) {
            decorate.setFrame({{0, 0}, ScreenSize()});
            Append(said, MoveView(decorate, room().screen()));
        }
        if (const auto bar = objc::As<ui::View>(Make("bar"))) {
            bar.setFrame(LiveRoom::InputFrame());
            InvokeIfAnswered(bar, "setDelegate:", TheObjects().NameOf(decorate));
            Append(said, MoveView(bar, room().screen()));
        }
        Append(said, InvokeIfAnswered(Make("engine"), "joinWithGroupId:role:callback:",
                                      {script::Text(group), Bare("0"), Bare("block"), Bare("1")}));
        return said;
    }

    /// The app keeps nothing of a room that it has left.
    void Leave() {
        for (const char *kind : {"decorate", "bar"}) {
            if (const objc::Ref<ns::Object> view = TheObjects().Last(kind)) {
                MoveView(objc::As<ui::View>(view.get()), nullptr);
                TheObjects().LetGo(view);
            }
        }
        if (const objc::Ref<ns::Object> engine = TheObjects().Last("engine")) {
            TheObjects().LetGo(engine);
        }
        room().Leave();
    }
};

} // namespace

std::unique_ptr<Host> MakeXiaohongshu() {
    return std::make_unique<Xiaohongshu>();
}

} // namespace sim::hosts
