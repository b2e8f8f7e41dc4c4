// The hooks that capture the comment view of WeChat Channels.

#include "adapters/host_access.hpp"
#include "adapters/installers.hpp"
#include "adapters/service_ready.hpp"
#include "adapters/wechat/adapter_state.hpp"
#include "diagnostics/debug_log.hpp"

namespace corvel::wechat {

[[clang::no_destroy]] constinit AdapterState state;

namespace {

Word DidMoveToWindow(objc::id self, objc::SEL selector) {
    const Word result = state.previous.didMoveToWindow(self, selector);
    const CommentView view{self};
    if (ReadGuarded([&] { return view.window(); })) {
        Capture(state.commentView, view);
        // By key, because the host may keep a number there. A view that raises leaves the old one in place.
        objc::Guard([&] { Capture(state.taskId, view.valueForKey("taskId"_ns)); });
        DebugLog(u"[FC] ✅ CommentView"_ns);
        PostDanmuServiceReady();
    }
    return result;
}

} // namespace
} // namespace corvel::wechat

void corvel::InstallWeChatHooks() {
    using namespace wechat;

    InstallMethodHooks({
        HookOf<"didMoveToWindow", state.previous.didMoveToWindow, &DidMoveToWindow>(CommentView::kClassName),
        PassThroughOf<"didCommitText:", state.previous.didCommitText, Word>(CommentView::kClassName),
    });
}
