#pragma once
// The classes of Douyin that the adapter talks to.

#include "adapters/host_access.hpp"
#include "adapters/send_table.hpp"
#include "apple/foundation/string.hpp"
#include "objc/block.hpp"

namespace corvel::douyin {

/// What a comment carries besides its text; filled by key-value coding.
struct CommentContext : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "IESLiveCommentContext";

    CommentContext init() const {
        return objc::Send<"init", CommentContext>(*this);
    }
};

/// Sends the comments of one live room.
struct CommentStore : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "HTSLiveCommentStore";
};
inline constexpr HostMethod<CommentStore, "sendCommentWithCommentContext:completion:",
                            void(CommentContext context, objc::Block<void()> completion)>
    kSendByStore;

/// The comment input of a live room; owns a comment store.
struct CommentFragment : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "HTSLiveCommentFragment";
};
inline constexpr HostMethod<CommentFragment, "sendComment:commentContext:completion:",
                            void(ns::String text, CommentContext context, objc::Block<void()> completion)>
    kSendByFragment;

/// The comment store that an object names as its own, by either of the names in use; nil when it names none. What the
/// host raises passes on.
inline CommentStore StoreOf(ns::Object owner) {
    const ns::Object store = PerformIfAnswered(owner, objc::Selector<"store">());
    return objc::As<CommentStore>(store ? store : PerformIfAnswered(owner, objc::Selector<"commentStore">()));
}

} // namespace corvel::douyin
