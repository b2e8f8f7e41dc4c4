#pragma once
// Douyin's private classes.

namespace sim::hosts::douyin {

/// The class of whatever answers key-value reads for the keys that a script gave it: all but the player's classes.
inline constexpr const char *kRootClass = "AWELiveBaseObject";

/// Registers the comment's fragments, stores and context, the room model, plain containers, and the player's
/// preferences and configuration.
void RegisterClasses();

} // namespace sim::hosts::douyin
