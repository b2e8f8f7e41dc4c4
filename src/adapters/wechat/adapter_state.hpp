#pragma once
// What the WeChat Channels adapter holds, for the whole process. Main thread only.

#include "adapters/method_hook.hpp"
#include "adapters/wechat/comment_view.hpp"

namespace corvel::wechat {

struct AdapterState {
    /// The last comment view that moved into a window; leaving it clears nothing.
    objc::Ref<CommentView> commentView;
    /// What that view called its task then; kept for whoever looks into a process, no send uses it.
    objc::Ref<ns::Object> taskId;

    struct {
        PreviousMethod didMoveToWindow;
        PreviousMethod didCommitText;
    } previous;
};

extern AdapterState state;

} // namespace corvel::wechat
