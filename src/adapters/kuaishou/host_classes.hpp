#pragma once
// The classes of Kuaishou that the adapter talks to.

#include "adapters/send_table.hpp"
#include "apple/foundation/string.hpp"
#include "objc/block.hpp"

namespace corvel::kuaishou {

/// The common base of a live room's services.
struct BaseService : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "KwaiLiveBaseService";
};

/// The service behind the comment input.
struct CommentBarService : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "KSSLiveCommentBarService";
};
inline constexpr HostMethod<CommentBarService, "comment:", void(ns::String)> kCommentByBar;

/// The service that posts comments.
struct CommentService : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "KSLiveCommentService";
};
inline constexpr HostMethod<CommentService, "comment:completion:", void(ns::String, objc::Block<void()>)>
    kCommentByService;

/// The comment input of the preview screen.
struct PreviewComponent : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "KSLivePreviewSendCommentComponent";
};
inline constexpr HostMethod<PreviewComponent, "sendComment:source:", void(ns::String, long)> kSendByPreview;

} // namespace corvel::kuaishou
