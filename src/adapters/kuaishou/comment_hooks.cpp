// The hooks that hold Kuaishou's comment services and preview component.

#include "adapters/host_access.hpp"
#include "adapters/kuaishou/adapter_state.hpp"
#include "adapters/kuaishou/kuaishou.hpp"
#include "adapters/method_hook.hpp"
#include "adapters/service_ready.hpp"
#include "diagnostics/debug_log.hpp"

namespace corvel::kuaishou {

[[clang::no_destroy]] constinit AdapterState state;

namespace {

template <objc::Handle T> bool IsA(ns::Object object) {
    return ReadGuarded([&] { return object.isKindOfClass(objc::ClassOf<T>()); });
}

/// Sees every service of a live room; two of them matter. One that overrides onCreate without calling it is not seen.
void ServiceCreated(BaseService service) {
    if (IsA<CommentBarService>(service)) {
        Hold(state.commentBarService, objc::As<CommentBarService>(service));
        DebugLog(u"[KS] ✅ CommentBarService"_ns);
        PostDanmuServiceReady();
    }
    if (IsA<CommentService>(service)) {
        Hold(state.commentService, objc::As<CommentService>(service));
    }
}

void BarBound(CommentBarService bar) {
    Hold(state.commentBarService, bar);
    PostDanmuServiceReady();
}

void ServiceUsed(CommentService service) {
    Hold(state.commentService, service);
}

void PreviewShown(PreviewComponent preview) {
    Hold(state.previewComponent, preview);
}

void PreviewLoaded(PreviewComponent preview) {
    PreviewShown(preview);
    PostDanmuServiceReady();
}

} // namespace
} // namespace corvel::kuaishou

std::span<const corvel::MethodHook> corvel::KuaishouHooks() {
    using namespace kuaishou;
    static constexpr MethodHook kHooks[] = {
        After<BaseService, "onCreate", &ServiceCreated>(),
        After<CommentBarService, "bindTarget:", &BarBound>(),
        PassThrough<CommentBarService, "comment:">(),
        After<CommentService, "comment:completion:", &ServiceUsed>(),
        After<PreviewComponent, "componentDidLoad", &PreviewLoaded>(),
        After<PreviewComponent, "componentDidAppear:", &PreviewShown>(),
        PassThrough<PreviewComponent, "sendComment:source:">(),
    };
    return kHooks;
}
