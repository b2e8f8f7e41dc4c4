#pragma once
// The class of WeChat that the adapter talks to.

#include "adapters/send_table.hpp"
#include "apple/foundation/string.hpp"
#include "apple/uikit/view.hpp"

namespace corvel::wechat {

/// The comment input of a live room.
struct CommentView : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "MMLiveCommentView";
};
/// Sends the text as a comment; whether the view took it.
inline constexpr HostMethod<CommentView, "didCommitText:", bool(ns::String)> kCommitText;

} // namespace corvel::wechat
