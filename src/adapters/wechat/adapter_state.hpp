#pragma once
// What the WeChat adapter holds, for the whole process. Main thread only.

#include "adapters/wechat/host_classes.hpp"

namespace corvel::wechat {

struct AdapterState {
    /// The last comment view that moved into a window; leaving it clears nothing.
    objc::Ref<CommentView> commentView;
    /// What that view called its task then; kept for whoever looks into a process, no send uses it.
    objc::Ref<ns::Object> taskId;
};

extern AdapterState state;

} // namespace corvel::wechat
