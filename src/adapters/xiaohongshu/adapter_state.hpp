#pragma once
// What the Xiaohongshu adapter holds, for the whole process. Main thread only.

#include "adapters/xiaohongshu/host_classes.hpp"

namespace corvel::xiaohongshu {

struct AdapterState {
    /// The last decorate view that moved into a superview or that a comment bar named as its delegate.
    objc::Ref<DecorateView> decorateView;
    /// The last comment bar that moved into a window or was attached to a view controller.
    objc::Ref<CommentBar> commentBar;
    /// The last engine that joined a group, and that group.
    objc::Ref<ImEngine> imEngine;
    objc::Ref<ns::Object> groupId;
};

extern AdapterState state;

} // namespace corvel::xiaohongshu
