#include "hosts/wechat/wechat.hpp"

#include "hosts/invocation.hpp"
#include "hosts/objects.hpp"
#include "hosts/wechat/comment_view.hpp"
#include "hosts/wechat/plugins.hpp"

namespace sim::hosts {
namespace {

using script::Fact;
using script::WordReader;

constexpr Kind kKinds[] = {
    {"view", "MMLiveCommentView"},
    {"search-view", "MMLiveSearchView"},
    {"task", "NSObject"},
    {"box", "UIView"},
};

class WeChat final : public Host {
  public:
    void RegisterClasses() override {
        wechat::RegisterCommentView();
        wechat::RegisterPlugins();
    }

  private:
    LiveRoomLook Look() const override {
        return {.appName = "视频号直播",
                .placeholder = "聊一聊…",
                .anchor = "南山读书会",
                .accent = 0x07C160,
                .wash = 0x3E7C6A,
                .face = "山",
                .welcome = "欢迎来到视频号直播间，请遵守直播规范。",
                .follow = "关注",
                .likes = "9207 次喜欢",
                .chatter = {{"安然", "老师晚上好"}, {"老秦", "坐等开讲"}},
                .buttons = {"礼", "赞", "转"}};
    }

    const char *ClassOfKind(const std::string &kind) const override {
        return ClassOf(kKinds, kind);
    }

    bool OwnEvent(WordReader &words, Fact &fact) override {
        if (words.Take("enter")) {
            fact = Enter(words.QuotedText("the task of the room"));
        } else if (words.Take("leave")) {
            Leave();
        } else if (words.Take("plugins")) {
            if (words.Take("close")) {
                page_.Close();
            } else {
                words.Expect("open");
                page_.Open(room().window().rootViewController().view());
            }
        } else {
            return false;
        }
        return true;
    }

    Fact Enter(const std::string &task) {
        page_.Close();
        room().Enter(task);
        const auto view = objc::As<ui::View>(Make("view"));
        if (!view) {
            return {};
        }
        view.setFrame(LiveRoom::InputFrame());
        InvokeIfAnswered(view, "setTaskId:", {script::Text(task)});
        return MoveView(view, room().screen());
    }

    /// The app keeps nothing of a room that it has left.
    void Leave() {
        if (const objc::Ref<ns::Object> view = TheObjects().Last("view")) {
            MoveView(objc::As<ui::View>(view.get()), nullptr);
            TheObjects().LetGo(view);
        }
        room().Leave();
    }

    wechat::PluginsPage page_;
};

} // namespace

std::unique_ptr<Host> MakeWeChat() {
    return std::make_unique<WeChat>();
}

} // namespace sim::hosts
