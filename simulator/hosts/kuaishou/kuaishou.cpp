#include "hosts/kuaishou/kuaishou.hpp"

#include "hosts/invocation.hpp"
#include "hosts/kuaishou/comment_classes.hpp"
#include "hosts/objects.hpp"
#include "hosts/record.hpp"

namespace sim::hosts {
namespace {

using script::Bare;
using script::Fact;
using script::WordReader;

constexpr Kind kKinds[] = {
    {"bar", "KSSLiveCommentBarService"},
    {"gift-bar", "KSSLiveGiftBarService"},
    {"service", "KSLiveCommentService"},
    {"gift-service", "KSLiveGiftService"},
    {"preview", "KSLivePreviewSendCommentComponent"},
    {"like-preview", "KSLivePreviewLikeComponent"},
    {"target", "NSObject"},
};

class Kuaishou final : public Host {
  public:
    void RegisterClasses() override {
        kuaishou::RegisterCommentClasses();
    }

  private:
    LiveRoomLook Look() const override {
        return {.appName = "快手直播",
                .placeholder = "来，聊聊天~",
                .anchor = "老铁小周",
                .accent = 0xFF4906,
                .wash = 0xC77B30,
                .face = "周",
                .welcome = "欢迎老铁！平台倡导绿色直播，文明互动。",
                .follow = "关注",
                .likes = "3.8万热度",
                .chatter = {{"山东大姐", "主播辛苦了"}, {"小虎", "双击走一波"}},
                .buttons = {"礼", "粉", "更"}};
    }

    const char *ClassOfKind(const std::string &kind) const override {
        return ClassOf(kKinds, kind);
    }

    bool OwnEvent(WordReader &words, Fact &fact) override {
        if (words.Take("enter")) {
            room().Enter(words.QuotedText("the room"));
            fact = StartServices();
        } else if (words.Take("preview")) {
            room().Enter(words.QuotedText("the room"));
            fact = StartPreview();
        } else if (words.Take("leave")) {
            Leave();
        } else {
            return false;
        }
        return true;
    }

    /// A room's services, created in the app's order; the bar is then bound to the room.
    Fact StartServices() {
        Fact said;
        Append(said, InvokeIfAnswered(Make("gift-service"), "onCreate"));
        const ns::Object bar = Make("bar");
        Append(said, InvokeIfAnswered(bar, "onCreate"));
        Append(said, InvokeIfAnswered(Make("service"), "onCreate"));
        Append(said, InvokeIfAnswered(bar, "bindTarget:", TheObjects().NameOf(Make("target"))));
        return said;
    }

    /// A room in preview has no services yet.
    Fact StartPreview() {
        Fact said;
        const ns::Object preview = Make("preview");
        Append(said, InvokeIfAnswered(preview, "componentDidLoad"));
        Append(said, InvokeIfAnswered(preview, "componentDidAppear:", {Bare("true")}));
        return said;
    }

    /// The app keeps nothing of a room that it has left.
    void Leave() {
        for (const Kind &kind : kKinds) {
            if (const objc::Ref<ns::Object> object = TheObjects().Last(kind.name)) {
                TheObjects().LetGo(object);
            }
        }
        room().Leave();
    }
};

} // namespace

std::unique_ptr<Host> MakeKuaishou() {
    return std::make_unique<Kuaishou>();
}

} // namespace sim::hosts
