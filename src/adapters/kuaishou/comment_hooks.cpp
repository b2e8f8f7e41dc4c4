// The hooks that capture Kuaishou's comment services and preview component.

#include "adapters/host_access.hpp"
#include "adapters/installers.hpp"
#include "adapters/kuaishou/adapter_state.hpp"
#include "adapters/service_ready.hpp"
#include "diagnostics/debug_log.hpp"

namespace corvel::kuaishou {

[[clang::no_destroy]] constinit AdapterState state;

namespace {

template <objc::Handle T> bool IsA(ns::Object object) {
    return ReadGuarded([&] { return object.isKindOfClass(objc::ClassOf<T>()); });
}

/// Sees every service of a live room; two of them matter. One that overrides onCreate without calling it is not seen.
Word ServiceOnCreate(objc::id self, objc::SEL selector) {
    const Word result = state.previous.serviceOnCreate(self, selector);
    const ns::Object service{self};
    if (IsA<CommentBarService>(service)) {
        Capture(state.commentBarService, objc::As<CommentBarService>(service));
        DebugLog(u"[KS] ✅ CommentBarService"_ns);
        PostDanmuServiceReady();
    }
    if (IsA<CommentService>(service)) {
        Capture(state.commentService, objc::As<CommentService>(service));
    }
    return result;
}

Word BindTarget(objc::id self, objc::SEL selector, Word target) {
    const Word result = state.previous.bindTarget(self, selector, target);
    Capture(state.commentBarService, CommentBarService{self});
    PostDanmuServiceReady();
    return result;
}

Word ServiceComment(objc::id self, objc::SEL selector, Word text, Word completion) {
    const Word result = state.previous.serviceComment(self, selector, text, completion);
    Capture(state.commentService, CommentService{self});
    return result;
}

Word ComponentDidLoad(objc::id self, objc::SEL selector) {
    const Word result = state.previous.componentDidLoad(self, selector);
    Capture(state.previewComponent, PreviewComponent{self});
    PostDanmuServiceReady();
    return result;
}

Word ComponentDidAppear(objc::id self, objc::SEL selector, Word animated) {
    const Word result = state.previous.componentDidAppear(self, selector, animated);
    Capture(state.previewComponent, PreviewComponent{self});
    return result;
}

} // namespace
} // namespace corvel::kuaishou

void corvel::InstallKuaishouHooks() {
    using namespace kuaishou;
    constexpr const char *kBase = BaseService::kClassName;
    constexpr const char *kBar = CommentBarService::kClassName;
    constexpr const char *kService = CommentService::kClassName;
    constexpr const char *kPreview = PreviewComponent::kClassName;

    InstallMethodHooks({
        HookOf<"onCreate", state.previous.serviceOnCreate, &ServiceOnCreate>(kBase),
        HookOf<"bindTarget:", state.previous.bindTarget, &BindTarget>(kBar),
        PassThroughOf<"comment:", state.previous.barComment, Word>(kBar),
        HookOf<"comment:completion:", state.previous.serviceComment, &ServiceComment>(kService),
        HookOf<"componentDidLoad", state.previous.componentDidLoad, &ComponentDidLoad>(kPreview),
        HookOf<"componentDidAppear:", state.previous.componentDidAppear, &ComponentDidAppear>(kPreview),
        PassThroughOf<"sendComment:source:", state.previous.previewSendComment, Word, Word>(kPreview),
    });
}
