// Sending a comment through WeChat's comment view.

#include "adapters/send_paths.hpp"
#include "adapters/wechat/adapter_state.hpp"
#include "adapters/wechat/wechat.hpp"

namespace corvel::wechat {
namespace {

constexpr SendPath kPaths[] = {
    {.name = "view",
     .className = CommentView::kClassName,
     .holders = {HeldBy<CommentView, "didMoveToWindow">()},
     .steps = {Calls(kCommitText)}},
};

void Send(ns::String text) {
    LogSendLine(u"[FC] send=\"%@\" view=%@"_ns, text, HeldMark(state.commentView));
    SendByFirstOf(kPaths, Through(state.commentView, u"[FC] ❌ %@"_ns, [&](CommentView view) {
                      const bool taken = kCommitText(view, text);
                      DebugLog(u"[FC] %@"_ns, taken ? u"✅"_ns : u"❌"_ns);
                      return taken;
                  }));
}

} // namespace
} // namespace corvel::wechat

std::span<const corvel::SendPath> corvel::WeChatSendPaths() {
    return wechat::kPaths;
}

bool FC_IsReady() {
    return static_cast<bool>(corvel::wechat::state.commentView);
}

void FC_SendMessage(objc::id text) {
    corvel::RunSend(text, &corvel::wechat::Send);
}
