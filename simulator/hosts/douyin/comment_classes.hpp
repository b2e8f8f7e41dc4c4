#pragma once
// Douyin's private classes of the comment input.

namespace sim::hosts::douyin {

/// The class under which all of them stand: it answers key-value reads for the keys that a script gave an object.
inline constexpr const char *kRootClass = "AWELiveBaseObject";

/// Registers the root, the fragments, the stores, the comment context, the room model and plain containers.
void RegisterCommentClasses();

} // namespace sim::hosts::douyin
