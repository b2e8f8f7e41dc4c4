#pragma once
// What the Douyin adapter holds, for the whole process. Main thread only.

#include "adapters/douyin/host_classes.hpp"

namespace corvel::douyin {

struct AdapterState {
    /// The last fragment seen mounting or sending.
    objc::Ref<CommentFragment> fragment;
    /// The last store that a mounting fragment named or that was set up.
    objc::Ref<CommentStore> store;
    /// The last room identifier found; kept when a later probe finds none.
    objc::Ref<ns::String> roomId;
    /// Mounts and store setups so far; never reset.
    std::int64_t bindCount = 0;
};

extern AdapterState state;

} // namespace corvel::douyin
