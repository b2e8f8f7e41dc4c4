#pragma once
// The classes of Xiaohongshu that the adapter talks to.

#include "apple/foundation/collections.hpp"
#include "apple/foundation/string.hpp"
#include "apple/uikit/view.hpp"
#include "objc/block.hpp"

namespace corvel::xiaohongshu {

/// The overlay of a playing live room.
struct DecorateView : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "XYLivePlayDecorateView";

    void sendFasterChatMsg(ns::String text) const {
        objc::Send<"sendFasterChatMsg:", void>(*this, text);
    }
};

/// The comment input of a live room; its delegate is, as a rule, the decorate view.
struct CommentBar : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "XYCommentBar";
};

/// A message to a live room's group.
struct ImMessage : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "XYLiveIMMessage";

    ImMessage initWithType(long type, ns::Object groupId, long priority, ns::Dictionary content) const {
        return objc::Send<"initWithType:groupID:priority:dict:", ImMessage>(*this, type, groupId, priority, content);
    }
};

/// Joins a live room's group and posts messages to it.
struct ImEngine : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "XYLiveImEngine";

    void sendCustomWithMsg(ImMessage message, objc::Block<void()> success, objc::Block<void()> failure) const {
        objc::Send<"sendCustomWithMsg:succ:fail:", void>(*this, message, success, failure);
    }
};

} // namespace corvel::xiaohongshu
