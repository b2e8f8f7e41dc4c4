#pragma once
// The classes of Xiaohongshu that the adapter talks to.

#include "adapters/send_table.hpp"
#include "apple/foundation/collections.hpp"
#include "apple/foundation/string.hpp"
#include "apple/uikit/view.hpp"
#include "objc/block.hpp"

namespace corvel::xiaohongshu {

/// The overlay of a playing live room.
struct DecorateView : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "XYLivePlayDecorateView";
};
inline constexpr HostMethod<DecorateView, "sendFasterChatMsg:", void(ns::String)> kSendChat;

/// The comment input of a live room; its delegate is, as a rule, the decorate view.
struct CommentBar : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "XYCommentBar";
};
inline constexpr HostMethod<CommentBar, "sendButtonTapped:", void(ns::Object)> kPressSend;

/// A message to a live room's group.
struct ImMessage : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "XYLiveIMMessage";
};
inline constexpr HostMethod<ImMessage, "initWithType:groupID:priority:dict:",
                            ImMessage(long type, ns::Object groupId, long priority, ns::Dictionary content)>
    kInitMessage;

/// Joins a live room's group and posts messages to it.
struct ImEngine : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "XYLiveImEngine";
};
inline constexpr HostMethod<ImEngine, "sendCustomWithMsg:succ:fail:",
                            void(ImMessage message, objc::Block<void()> success, objc::Block<void()> failure)>
    kPostMessage;

} // namespace corvel::xiaohongshu
