// Kuaishou: the services of a live room, and the component that sends comments from its preview.

#include "hosts/app.hpp"

namespace sim::hosts {
namespace {

using Completion = objc::Block<void()>;

constexpr Kind kKinds[] = {
    {"bar", "KSSLiveCommentBarService", true},
    {"gift-bar", "KSSLiveGiftBarService", true},
    {"service", "KSLiveCommentService", true},
    {"gift-service", "KSLiveGiftService", true},
    {"preview", "KSLivePreviewSendCommentComponent", true},
    {"like-preview", "KSLivePreviewLikeComponent", true},
    {"target", "NSObject", true},
};

const LiveRoomLook kLook{.appName = "快手直播",
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

/// Every service has the base's onCreate; a build may give one its own, which does not call the base's.
void RegisterServices() {
    constexpr const char *kRoot = "KwaiLiveBaseComponent";
    constexpr const char *kBase = "KwaiLiveBaseService";
    HostClass base("NSObject", kRoot, kBase, "KwaiLiveBaseTool");
    base.Method<"onCreate">(kItself);
    // A build without the base has its services stand on what the base stood on.
    const char *const root = ThePlan().lackedClasses.contains(kBase) ? kRoot : kBase;

    HostClass bar(root, "KSSLiveBarService", "KSSLiveCommentBarService", "KSSLiveGiftBarService");
    bar.OptionalMethod<"onCreate">(kItself);
    bar.Method<"bindTarget:">([](ns::Object, ns::Object target) { return target; });
    bar.Method<"comment:">([](ns::Object self, ns::Object text) { ReceiveComment("bar", self, text); });

    HostClass service(root, "KSLiveRoomService", "KSLiveCommentService", "KSLiveGiftService");
    service.OptionalMethod<"onCreate">(kItself);
    service.Method<"comment:completion:">(
        [](ns::Object self, ns::Object text, Completion) { ReceiveComment("service", self, text); });
}

void RegisterPreview() {
    HostClass preview("NSObject", "KSLivePreviewComponent", "KSLivePreviewSendCommentComponent",
                      "KSLivePreviewLikeComponent");
    preview.Method<"componentDidLoad">(kItself);
    preview.Method<"componentDidAppear:">([](ns::Object, bool animated) { return animated; });
    preview.Method<"sendComment:source:">([](ns::Object self, ns::Object text, long source) {
        ReceiveComment("preview", self, text, nullptr, {Bare("source"), Bare(source)});
    });
}

} // namespace

class Kuaishou final : public Host {
  public:
    Kuaishou() : Host(kLook, kKinds) {
        On("enter", [this](WordReader &words) {
            room().Enter(words.QuotedText("the room"));
            return StartServices();
        });
        On("preview", [this](WordReader &words) {
            room().Enter(words.QuotedText("the room"));
            return StartPreview();
        });
    }

    void RegisterClasses() override {
        RegisterServices();
        RegisterPreview();
    }

  private:
    /// A room's services, created in the app's order; the bar is then bound to the room.
    Fact StartServices() {
        Fact said;
        Append(said, InvokeIfAnswered(Make("gift-service"), "onCreate"));
        const objc::Ref<ns::Object> bar = Make("bar");
        Append(said, InvokeIfAnswered(bar, "onCreate"));
        Append(said, InvokeIfAnswered(Make("service"), "onCreate"));
        Append(said, InvokeIfAnswered(bar, "bindTarget:", TheObjects().NameOf(Make("target"))));
        return said;
    }

    /// A room in preview has no services yet.
    Fact StartPreview() {
        Fact said;
        const objc::Ref<ns::Object> preview = Make("preview");
        Append(said, InvokeIfAnswered(preview, "componentDidLoad"));
        Append(said, InvokeIfAnswered(preview, "componentDidAppear:", {Bare(true)}));
        return said;
    }
};

template std::unique_ptr<Host> MakeHost<Kuaishou>();

} // namespace sim::hosts
