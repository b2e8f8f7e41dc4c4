// The hooks that hold Xiaohongshu's decorate view, comment bar and messaging engine.

#include "adapters/host_access.hpp"
#include "adapters/method_hook.hpp"
#include "adapters/service_ready.hpp"
#include "adapters/xiaohongshu/adapter_state.hpp"
#include "adapters/xiaohongshu/xiaohongshu.hpp"
#include "diagnostics/debug_log.hpp"

namespace corvel::xiaohongshu {

[[clang::no_destroy]] constinit AdapterState state;

namespace {

void DecorateMoved(DecorateView view) {
    if (ReadGuarded([&] { return view.superview(); })) {
        Hold(state.decorateView, view);
        DebugLog(u"[XHS] ✅ DecorateView"_ns);
        PostDanmuServiceReady();
    }
}

void BarMoved(CommentBar bar) {
    if (ReadGuarded([&] { return bar.window(); })) {
        Hold(state.commentBar, bar);
    }
}

/// The bar's delegate when it is a decorate view; empty otherwise.
objc::Ref<DecorateView> DecorateDelegate(CommentBar bar) {
    return ReadGuarded([&]() -> objc::Ref<DecorateView> {
        const ns::Object delegate = bar.valueForKey("delegate"_ns);
        const bool decorates = delegate.isKindOfClass(objc::ClassOf<DecorateView>());
        return decorates ? objc::As<DecorateView>(delegate) : DecorateView{};
    });
}

void BarAttached(CommentBar bar) {
    Hold(state.commentBar, bar);
    if (const auto view = DecorateDelegate(bar)) {
        Hold(state.decorateView, view.get());
        PostDanmuServiceReady();
    }
}

void Joined(ImEngine engine, objc::Object groupId) {
    Hold(state.imEngine, engine);
    Hold(state.groupId, ns::Object{groupId});
}

} // namespace
} // namespace corvel::xiaohongshu

std::span<const corvel::MethodHook> corvel::XiaohongshuHooks() {
    using namespace xiaohongshu;
    static constexpr MethodHook kHooks[] = {
        After<DecorateView, "didMoveToSuperview", &DecorateMoved>(),
        PassThrough<DecorateView, "sendFasterChatMsg:">(),
        After<CommentBar, "didMoveToWindow", &BarMoved>(),
        After<CommentBar, "attachToViewController:hideWhenNotFirstResponder:", &BarAttached>(),
        PassThrough<CommentBar, "sendButtonTapped:">(),
        PassThrough<CommentBar, "_commentBarWillSend">(),
        After<ImEngine, "joinWithGroupId:callback:", &Joined>(),
        After<ImEngine, "joinWithGroupId:role:callback:", &Joined>(),
    };
    return kHooks;
}
