// Xiaohongshu: the decorate view of a live room, its comment bar, its messaging engine.

#include "apple/foundation/collections.hpp"
#include "hosts/app.hpp"
#include "uikit/application.hpp"
#include "uikit/autoresizing.hpp"
#include "uikit/target_action.hpp"
#include "uikit/view_state.hpp"

namespace sim::hosts {
namespace {

using Completion = objc::Block<void()>;

constexpr const char *kMessageClass = "XYLiveIMMessage";

constexpr Kind kKinds[] = {
    {"decorate", "XYLivePlayDecorateView", true},
    {"push-decorate", "XYLivePushDecorateView"},
    {"bar", "XYCommentBar", true},
    {"search-bar", "XYSearchBar"},
    {"engine", "XYLiveImEngine", true},
    {"push-engine", "XYLivePushEngine"},
    {"group", "NSObject"},
    {"controller", "UIViewController"},
    {"box", "UIView"},
};

const LiveRoomLook kLook{.appName = "小红书直播",
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

void RegisterDecorateView() {
    HostClass decorate("UIView", "XYLiveDecorateView", "XYLivePlayDecorateView", "XYLivePushDecorateView");
    decorate.Method<"didMoveToSuperview">(kNothing);
    decorate.OptionalMethod<"superview">([](ui::View self) { return objc::SendSuper<"superview", ui::View>(self); });
    decorate.Method<"sendFasterChatMsg:">(
        [](ns::Object self, ns::Object text) { ReceiveComment("decorate", self, text); });
}

struct CommentBarState {
    WeakObject delegate;
    objc::Ref<ns::Object> text;
};

struct CommentBar : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "XYCommentBar";
};

void RegisterCommentBar() {
    // What looks at the screen reads the text of any view; that is no call of the app's, so it stands in the root.
    Class<CommentBarState>("XYInputBarRoot", "UIView").ReadOnly<"text", &CommentBarState::text>();
    HostClass bar("XYInputBarRoot", "XYInputBar", CommentBar::kClassName, "XYSearchBar");
    bar.Method<"setText:">([](CommentBarState &state, ns::Object value) { state.text = value; });
    bar.Method<"clearInput">([](CommentBarState &state) { state.text = nullptr; });
    bar.Method<"delegate">([](const CommentBarState &state) { return state.delegate.Lock(); });
    bar.Method<"setDelegate:">(
        [](CommentBarState &state, ns::Object delegate) { state.delegate = WeakObject(delegate); });
    bar.Method<"didMoveToWindow">(kNothing);
    bar.OptionalMethod<"window">([](ui::View self) { return objc::SendSuper<"window", ui::View>(self); });
    bar.OptionalMethod<"drawRect:">([](ns::Object, cg::Rect) {});
    bar.Method<"attachToViewController:hideWhenNotFirstResponder:">(
        [](ns::Object, ns::Object, bool hides) { return hides; });
    bar.Method<"_commentBarWillSend">(kNothing);
    bar.Method<"sendButtonTapped:">([](ns::Object self, ns::Object) {
        if (self.respondsToSelector(objc::Selector<"_commentBarWillSend">())) {
            objc::Send<"_commentBarWillSend", void>(objc::As<CommentBar>(self));
        }
        ReceiveComment("bar", self, StateOf<CommentBarState>(self).text);
    });
}

struct MessageState {
    bool initialised = false;
    long type = 0;
    long priority = 0;
    objc::Ref<ns::Object> groupId;
    objc::Ref<ns::Dictionary> content;
};

void ReceiveMessage(ns::Object engine, ns::Object message) {
    if (!message.isKindOfClass(objc_getClass(kMessageClass))) {
        ReceiveComment("engine", engine, nullptr);
        return;
    }
    const MessageState &state = StateOf<MessageState>(message);
    Fact context{Bare(state.initialised ? "initialised" : "uninitialised")};
    if (state.initialised) {
        Append(context, Fact{Bare("type"), Bare(state.type), Bare("priority"), Bare(state.priority), Bare("dict")});
        Append(context, DescribeArgument(state.content.get()));
    }
    ReceiveComment("engine", engine, state.content->objectForKey("content"_ns), state.groupId, context);
}

void RegisterEngine() {
    HostClass engine("NSObject", "XYLiveBaseEngine", "XYLiveImEngine", "XYLivePushEngine");
    engine.Method<"joinWithGroupId:callback:">([](ns::Object, ns::Object, Completion callback) { return callback; });
    engine.Method<"joinWithGroupId:role:callback:">([](ns::Object, ns::Object, long role, Completion) { return role; });
    engine.Method<"sendCustomWithMsg:succ:fail:">(
        [](ns::Object self, ns::Object message, Completion, Completion) { ReceiveMessage(self, message); });

    Class<MessageState>("XYLiveIMRoot", "NSObject");
    HostClass message("XYLiveIMRoot", "XYLiveIMBaseMessage", kMessageClass, "XYLiveIMNotice");
    message.Method<"initWithType:groupID:priority:dict:">(
        [](ns::Object self, long type, ns::Object groupId, long priority, ns::Dictionary content) {
            StateOf<MessageState>(self) = {true, type, priority, groupId, content};
            return self;
        });
}

} // namespace

class Xiaohongshu final : public Host {
  public:
    Xiaohongshu() : Host(kLook, kKinds) {
        On("enter", [this](WordReader &words) { return Enter(words.QuotedText("the group of the room")); });
    }

    void RegisterClasses() override {
        RegisterDecorateView();
        RegisterCommentBar();
        RegisterEngine();
    }

  private:
    /// A room as the app opens it: the overlay, the comment bar whose delegate it is, the messaging group.
    Fact Enter(const std::string &group) {
        room().Enter(group);
        Fact said;
        const objc::Ref<ui::View> decorate = objc::As<ui::View>(Make("decorate").get());
        if (decorate) {
            decorate->setFrame({{0, 0}, ScreenSize()});
            ViewStateOf(decorate).autoresizingMask = UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight;
            Append(said, MoveView(decorate, room().screen()));
        }
        if (const objc::Ref<ui::View> bar = objc::As<ui::View>(Make("bar").get())) {
            room().PlaceAtInput(bar);
            InvokeIfAnswered(bar, "setDelegate:", TheObjects().NameOf(decorate.get()));
            Append(said, MoveView(bar, room().screen()));
        }
        Append(said, InvokeIfAnswered(Make("engine"), "joinWithGroupId:role:callback:",
                                      {script::Text(group), Bare("0"), Bare("block"), Bare("1")}));
        return said;
    }
};

template std::unique_ptr<Host> MakeHost<Xiaohongshu>();

} // namespace sim::hosts
