// Sending a comment through Kuaishou's comment bar service, its comment service or its preview component.

#include "adapters/kuaishou/adapter_state.hpp"
#include "adapters/kuaishou/kuaishou.hpp"
#include "adapters/send_paths.hpp"

namespace corvel::kuaishou {
namespace {

void Send(ns::String text) {
    LogSendLine(u"[KS] send=\"%@\" bar=%@ svc=%@"_ns, text, HeldMark(state.commentBarService),
                HeldMark(state.commentService));
    SendByFirstOf(
        Through(state.commentBarService, u"[KS] ❌ %@"_ns, [&](CommentBarService bar) { bar.comment(text); }),
        Through(state.commentService, u"[KS] ❌ %@"_ns,
                [&](CommentService service) { service.comment(text, nullptr); }),
        Through(state.previewComponent, nullptr, [&](PreviewComponent preview) { preview.sendComment(text, 0); }));
}

} // namespace
} // namespace corvel::kuaishou

bool KS_IsReady() {
    using corvel::kuaishou::state;
    return state.commentBarService || state.commentService;
}

void KS_SendMessage(objc::id text) {
    corvel::RunSend(text, &corvel::kuaishou::Send);
}
