#pragma once
// The classes of Kuaishou that the adapter talks to.

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

    void comment(ns::String text) const {
        objc::Send<"comment:", void>(*this, text);
    }
};

/// The service that posts comments.
struct CommentService : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "KSLiveCommentService";

    void comment(ns::String text, objc::Block<void()> completion) const {
        objc::Send<"comment:completion:", void>(*this, text, completion);
    }
};

/// The comment input of the preview screen.
struct PreviewComponent : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "KSLivePreviewSendCommentComponent";

    void sendComment(ns::String text, long source) const {
        objc::Send<"sendComment:source:", void>(*this, text, source);
    }
};

} // namespace corvel::kuaishou
