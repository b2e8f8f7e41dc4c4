// Sending a comment through Kuaishou's comment bar service, its comment service or its preview component.

#include "adapters/kuaishou/adapter_state.hpp"
#include "adapters/kuaishou/kuaishou.hpp"
#include "adapters/send_paths.hpp"

namespace corvel::kuaishou {
namespace {

constexpr SendPath kPaths[] = {
    {.name = "bar",
     .className = CommentBarService::kClassName,
     .holders = {HeldBy<BaseService, "onCreate">(), HeldBy<CommentBarService, "bindTarget:">()},
     .steps = {Calls(kCommentByBar)}},
    {.name = "service",
     .className = CommentService::kClassName,
     .holders = {HeldBy<BaseService, "onCreate">(), HeldBy<CommentService, "comment:completion:">()},
     .steps = {Calls(kCommentByService)}},
    {.name = "preview",
     .className = PreviewComponent::kClassName,
     .holders = {HeldBy<PreviewComponent, "componentDidLoad">(), HeldBy<PreviewComponent, "componentDidAppear:">()},
     .steps = {Calls(kSendByPreview)}},
};

void Send(ns::String text) {
    LogSendLine(u"[KS] send=\"%@\" bar=%@ svc=%@"_ns, text, HeldMark(state.commentBarService),
                HeldMark(state.commentService));
    SendByFirstOf(
        kPaths,
        Through(state.commentBarService, u"[KS] ❌ %@"_ns, [&](CommentBarService bar) { kCommentByBar(bar, text); }),
        Through(state.commentService, u"[KS] ❌ %@"_ns,
                [&](CommentService service) { kCommentByService(service, text, nullptr); }),
        Through(state.previewComponent, nullptr, [&](PreviewComponent preview) { kSendByPreview(preview, text, 0); }));
}

} // namespace
} // namespace corvel::kuaishou

std::span<const corvel::SendPath> corvel::KuaishouSendPaths() {
    return kuaishou::kPaths;
}

bool KS_IsReady() {
    using corvel::kuaishou::state;
    return state.commentBarService || state.commentService;
}

void KS_SendMessage(objc::id text) {
    corvel::RunSend(text, &corvel::kuaishou::Send);
}
