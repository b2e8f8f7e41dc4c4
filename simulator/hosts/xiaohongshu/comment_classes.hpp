#pragma once
// Xiaohongshu's private classes of the comment input.

namespace sim::hosts::xiaohongshu {

/// Registers the decorate view, the comment bar, the messaging engine and its message.
void RegisterCommentClasses();

} // namespace sim::hosts::xiaohongshu
