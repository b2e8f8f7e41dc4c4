// Sending a comment through Kuaishou's comment bar service, its comment service or its preview component.

#include "adapters/kuaishou/adapter_state.hpp"
#include "adapters/send_frame.hpp"
#include "adapters/send_functions.hpp"

namespace corvel::kuaishou {
namespace {

void Send(ns::String text) {
    // Held: the send itself may make other ones captured.
    const objc::Ref<CommentBarService> bar = state.commentBarService;
    const objc::Ref<CommentService> service = state.commentService;
    const objc::Ref<PreviewComponent> preview = state.previewComponent;
    LogSendLine(u"[KS] send=\"%@\" bar=%@ svc=%@"_ns, text, CapturedMark(bar), CapturedMark(service));
    const bool sent = (bar && TrySendPath(u"[KS] ❌ %@"_ns,
                                          [&] {
                                              bar->comment(text);
                                              return true;
                                          })) ||
                      (service && TrySendPath(u"[KS] ❌ %@"_ns, [&] {
                           service->comment(text, nullptr);
                           return true;
                       }));
    if (!sent && preview) {
        objc::Guard([&] { preview->sendComment(text, 0); });
    }
}

} // namespace
} // namespace corvel::kuaishou

bool KS_IsReady() {
    using corvel::kuaishou::state;
    // The preview component does not count, although a send can use it.
    return state.commentBarService || state.commentService;
}

void KS_SendMessage(objc::id text) {
    corvel::RunSend(text, &corvel::kuaishou::Send);
}
