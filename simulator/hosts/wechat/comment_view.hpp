#pragma once
// The comment input of a live room in WeChat Channels.

namespace sim::hosts::wechat {

/// Registers the comment view.
void RegisterCommentView();

} // namespace sim::hosts::wechat
