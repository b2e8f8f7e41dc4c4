#pragma once
// What the Kuaishou adapter holds, for the whole process. Main thread only.

#include "adapters/kuaishou/host_classes.hpp"

namespace corvel::kuaishou {

struct AdapterState {
    /// The last comment bar service created or bound.
    objc::Ref<CommentBarService> commentBarService;
    /// The last comment service created or used.
    objc::Ref<CommentService> commentService;
    /// The last preview component loaded or shown.
    objc::Ref<PreviewComponent> previewComponent;
};

extern AdapterState state;

} // namespace corvel::kuaishou
