// Sending a comment through the comment view of WeChat Channels.

#include "adapters/send_frame.hpp"
#include "adapters/send_functions.hpp"
#include "adapters/wechat/adapter_state.hpp"

namespace corvel::wechat {
namespace {

void Send(ns::String text) {
    const objc::Ref<CommentView> view = state.commentView; // held: the send itself may make another one captured
    LogSendLine(u"[FC] send=\"%@\" view=%@"_ns, text, CapturedMark(view));
    if (view) {
        TrySendPath(u"[FC] ❌ %@"_ns, [&] {
            const bool taken = view->didCommitText(text);
            DebugLog(u"[FC] %@"_ns, taken ? u"✅"_ns : u"❌"_ns);
            return taken;
        });
    }
}

} // namespace
} // namespace corvel::wechat

bool FC_IsReady() {
    return static_cast<bool>(corvel::wechat::state.commentView);
}

void FC_SendMessage(objc::id text) {
    corvel::RunSend(text, &corvel::wechat::Send);
}
