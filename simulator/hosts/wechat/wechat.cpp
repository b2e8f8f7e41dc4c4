// WeChat: the comment view of a live room, and the manager of plug-ins with its page of switches.

#include "hosts/app.hpp"
#include "hosts/keyed.hpp"
#include "hosts/wechat/plugins.hpp"

namespace sim::hosts {
namespace {

constexpr Kind kKinds[] = {
    {"view", "MMLiveCommentView", true},
    {"search-view", "MMLiveSearchView"},
    {"task", "NSObject"},
    {"box", "UIView"},
};

const LiveRoomLook kLook{.appName = "视频号直播",
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

void RegisterCommentView() {
    RegisterKeyedRoot("MMLiveRootView", ui::View::kClassName);
    HostClass view("MMLiveRootView", "MMLiveInputView", "MMLiveCommentView", "MMLiveSearchView");
    view.Method<"didMoveToWindow">(kNothing);
    view.OptionalMethod<"window">([](ui::View self) { return objc::SendSuper<"window", ui::View>(self); });
    view.Method<"taskId">(kGet<"taskId">);
    view.Method<"setTaskId:">(kSet<"taskId">);
    view.Method<"didCommitText:">([](ns::Object self, ns::Object text) {
        ReceiveComment("view", self, text);
        return true;
    });
}

} // namespace

class WeChat final : public Host {
  public:
    WeChat() : Host(kLook, kKinds) {
        On("enter", [this](WordReader &words) { return Enter(words.QuotedText("the task of the room")); });
        On("plugins", [this](WordReader &words) -> Fact {
            if (words.Take("close")) {
                page_.Close();
            } else {
                words.Expect("open");
                if (!room().window()) {
                    words.Fail("the app has no screen to open the page on");
                }
                page_.Open(room().window().rootViewController().view());
            }
            return {};
        });
    }

    void RegisterClasses() override {
        RegisterCommentView();
        wechat::RegisterPlugins();
    }

  private:
    Fact Enter(const std::string &task) {
        page_.Close();
        room().Enter(task);
        const objc::Ref<ui::View> view = objc::As<ui::View>(Make("view").get());
        if (!view) {
            return {};
        }
        room().PlaceAtInput(view);
        InvokeIfAnswered(view, "setTaskId:", {script::Text(task)});
        return MoveView(view, room().screen());
    }

    wechat::PluginsPage page_;
};

template std::unique_ptr<Host> MakeHost<WeChat>();

} // namespace sim::hosts
