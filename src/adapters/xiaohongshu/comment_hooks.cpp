// The hooks that capture Xiaohongshu's decorate view, comment bar and messaging engine.

#include "adapters/host_access.hpp"
#include "adapters/installers.hpp"
#include "adapters/service_ready.hpp"
#include "adapters/xiaohongshu/adapter_state.hpp"
#include "diagnostics/debug_log.hpp"

namespace corvel::xiaohongshu {

[[clang::no_destroy]] constinit AdapterState state;

namespace {

Word DecorateDidMoveToSuperview(objc::id self, objc::SEL selector) {
    const Word result = state.previous.decorateDidMoveToSuperview(self, selector);
    const DecorateView view{self};
    if (ReadGuarded([&] { return view.superview(); })) {
        Capture(state.decorateView, view);
        DebugLog(u"[XHS] ✅ DecorateView"_ns);
        PostDanmuServiceReady();
    }
    return result;
}

Word BarDidMoveToWindow(objc::id self, objc::SEL selector) {
    const Word result = state.previous.barDidMoveToWindow(self, selector);
    const CommentBar bar{self};
    if (ReadGuarded([&] { return bar.window(); })) {
        Capture(state.commentBar, bar);
    }
    return result;
}

/// The bar's delegate when it is a decorate view; empty otherwise.
objc::Ref<DecorateView> DecorateDelegate(CommentBar bar) {
    return ReadGuarded([&]() -> objc::Ref<DecorateView> {
        const ns::Object delegate = bar.valueForKey("delegate"_ns);
        const bool decorates = delegate.isKindOfClass(objc::ClassOf<DecorateView>());
        return decorates ? objc::As<DecorateView>(delegate) : DecorateView{};
    });
}

Word AttachToViewController(objc::id self, objc::SEL selector, Word viewController, Word hides) {
    const Word result = state.previous.attachToViewController(self, selector, viewController, hides);
    const CommentBar bar{self};
    Capture(state.commentBar, bar);
    if (const auto view = DecorateDelegate(bar)) {
        Capture(state.decorateView, view.get());
        PostDanmuServiceReady();
    }
    return result;
}

/// Both ways to join a group; what they take after the group's id differs.
template <PreviousMethod &Previous, class... A>
Word JoinWithGroupId(objc::id self, objc::SEL selector, objc::id groupId, A... rest) {
    const Word result = Previous(self, selector, groupId, rest...);
    Capture(state.imEngine, ImEngine{self});
    Capture(state.groupId, ns::Object{groupId});
    return result;
}

} // namespace
} // namespace corvel::xiaohongshu

void corvel::InstallXiaohongshuHooks() {
    using namespace xiaohongshu;
    constexpr const char *kDecorateView = DecorateView::kClassName;
    constexpr const char *kCommentBar = CommentBar::kClassName;
    constexpr const char *kImEngine = ImEngine::kClassName;

    InstallMethodHooks({
        HookOf<"didMoveToSuperview", state.previous.decorateDidMoveToSuperview, &DecorateDidMoveToSuperview>(
            kDecorateView),
        PassThroughOf<"sendFasterChatMsg:", state.previous.sendFasterChatMsg, Word>(kDecorateView),
        HookOf<"didMoveToWindow", state.previous.barDidMoveToWindow, &BarDidMoveToWindow>(kCommentBar),
        HookOf<"attachToViewController:hideWhenNotFirstResponder:", state.previous.attachToViewController,
               &AttachToViewController>(kCommentBar),
        PassThroughOf<"sendButtonTapped:", state.previous.sendButtonTapped, Word>(kCommentBar),
        PassThroughOf<"_commentBarWillSend", state.previous.commentBarWillSend>(kCommentBar),
        HookOf<"joinWithGroupId:callback:", state.previous.joinWithGroupId,
               &JoinWithGroupId<state.previous.joinWithGroupId, Word>>(kImEngine),
        HookOf<"joinWithGroupId:role:callback:", state.previous.joinWithGroupIdAndRole,
               &JoinWithGroupId<state.previous.joinWithGroupIdAndRole, Word, Word>>(kImEngine),
    });
}
