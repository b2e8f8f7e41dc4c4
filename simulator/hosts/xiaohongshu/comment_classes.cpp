#include "hosts/xiaohongshu/comment_classes.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/uikit/view.hpp"
#include "hosts/host_class.hpp"

#include <optional>

namespace sim::hosts::xiaohongshu {
namespace {

using Completion = objc::Block<void()>;

void Nothing(ui::View, objc::SEL) {}

// The decorate view.

ui::View Superview(ui::View self, objc::SEL) {
    return objc::SendSuper<"superview", ui::View>(self);
}

void SendFasterChatMsg(ui::View self, objc::SEL, ns::Object text) {
    ReceiveComment("decorate", self, text);
}

void RegisterDecorateView() {
    const HostMethod methods[] = {
        Method<"didMoveToSuperview", &Nothing>(),
        OptionalMethod<"superview", &Superview>(),
        Method<"sendFasterChatMsg:", &SendFasterChatMsg>(),
    };
    RegisterFamily({"UIView", "XYLiveDecorateView", "XYLivePlayDecorateView", "XYLivePushDecorateView"}, methods);
}

// The comment bar.

struct CommentBarState {
    std::optional<objc::WeakRef<ns::Object>> delegate;
    objc::Ref<ns::Object> text;
};

struct CommentBar : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "XYCommentBar";
};

ui::View Window(ui::View self, objc::SEL) {
    return objc::SendSuper<"window", ui::View>(self);
}

ns::Object Delegate(ui::View self, objc::SEL) {
    const auto &delegate = StateOf<CommentBarState>(self).delegate;
    return delegate ? delegate->Lock().get() : ns::Object{};
}

void SetDelegate(ui::View self, objc::SEL, ns::Object delegate) {
    StateOf<CommentBarState>(self).delegate.emplace(delegate);
}

ns::Object Text(ui::View self, objc::SEL) {
    return StateOf<CommentBarState>(self).text;
}

void SetText(ui::View self, objc::SEL, ns::Object text) {
    StateOf<CommentBarState>(self).text = objc::Ref<ns::Object>(text);
}

void ClearInput(ui::View self, objc::SEL) {
    StateOf<CommentBarState>(self).text = nullptr;
}

bool AttachToViewController(ui::View, objc::SEL, ns::Object viewController, bool hides) {
    return hides;
}

void SendButtonTapped(ui::View self, objc::SEL, ns::Object sender) {
    if (self.respondsToSelector(objc::Selector<"_commentBarWillSend">())) {
        objc::Send<"_commentBarWillSend", void>(objc::As<CommentBar>(self));
    }
    ReceiveComment("bar", self, StateOf<CommentBarState>(self).text);
}

void RegisterCommentBar() {
    // What looks at the screen reads the text of any view; that is no call of the app's.
    const HostMethod text{objc::MethodNamed<"text", &Text>()};
    const HostMethod methods[] = {
        text,
        Method<"setText:", &SetText>(),
        Method<"delegate", &Delegate>(),
        Method<"setDelegate:", &SetDelegate>(),
        Method<"clearInput", &ClearInput>(),
        Method<"didMoveToWindow", &Nothing>(),
        OptionalMethod<"window", &Window>(),
        Method<"attachToViewController:hideWhenNotFirstResponder:", &AttachToViewController>(),
        Method<"sendButtonTapped:", &SendButtonTapped>(),
        Method<"_commentBarWillSend", &Nothing>(),
    };
    RegisterClassWithState<CommentBarState>("XYInputBarRoot", "UIView", {});
    RegisterFamily({"XYInputBarRoot", "XYInputBar", CommentBar::kClassName, "XYSearchBar"}, methods);
}

// The engine and its message.

struct MessageState {
    bool initialised = false;
    long type = 0;
    long priority = 0;
    objc::Ref<ns::Object> groupId;
    objc::Ref<ns::Dictionary> content;
};

ns::Object InitWithType(ns::Object self, objc::SEL, long type, ns::Object groupId, long priority,
                        ns::Dictionary content) {
    StateOf<MessageState>(self) = {true, type, priority, objc::Ref<ns::Object>(groupId),
                                   objc::Ref<ns::Dictionary>(content)};
    return self;
}

Completion JoinWithGroupId(ns::Object, objc::SEL, ns::Object groupId, Completion callback) {
    return callback;
}
long JoinWithGroupIdAndRole(ns::Object, objc::SEL, ns::Object groupId, long role, Completion callback) {
    return role;
}

void SendCustomWithMsg(ns::Object self, objc::SEL, ns::Object message, Completion success, Completion failure) {
    if (!message || !message.isKindOfClass(objc_getClass("XYLiveIMMessage"))) {
        ReceiveComment("engine", self, nullptr);
        return;
    }
    const MessageState &state = StateOf<MessageState>(message);
    script::Fact context{script::Bare(state.initialised ? "initialised" : "uninitialised")};
    if (state.initialised) {
        Append(context, {script::Bare("type"), script::Bare(std::to_string(state.type)), script::Bare("priority"),
                         script::Bare(std::to_string(state.priority)), script::Bare("dict")});
        Append(context, DescribeArgument(state.content.get()));
    }
    ReceiveComment("engine", self, state.content->objectForKey("content"_ns), state.groupId, context);
}

void RegisterEngine() {
    const HostMethod engine[] = {
        Method<"joinWithGroupId:callback:", &JoinWithGroupId>(),
        Method<"joinWithGroupId:role:callback:", &JoinWithGroupIdAndRole>(),
        Method<"sendCustomWithMsg:succ:fail:", &SendCustomWithMsg>(),
    };
    RegisterFamily({"NSObject", "XYLiveBaseEngine", "XYLiveImEngine", "XYLivePushEngine"}, engine);

    const HostMethod message[] = {Method<"initWithType:groupID:priority:dict:", &InitWithType>()};
    RegisterClassWithState<MessageState>("XYLiveIMRoot", "NSObject", {});
    RegisterFamily({"XYLiveIMRoot", "XYLiveIMBaseMessage", "XYLiveIMMessage", "XYLiveIMNotice"}, message);
}

} // namespace

void RegisterCommentClasses() {
    RegisterDecorateView();
    RegisterCommentBar();
    RegisterEngine();
}

} // namespace sim::hosts::xiaohongshu
