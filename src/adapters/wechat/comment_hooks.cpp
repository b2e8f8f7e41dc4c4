// The hooks that hold WeChat's comment view.

#include "adapters/host_access.hpp"
#include "adapters/method_hook.hpp"
#include "adapters/service_ready.hpp"
#include "adapters/wechat/adapter_state.hpp"
#include "adapters/wechat/wechat.hpp"
#include "diagnostics/debug_log.hpp"

namespace corvel::wechat {

[[clang::no_destroy]] constinit AdapterState state;

namespace {

void MovedToWindow(CommentView view) {
    if (ReadGuarded([&] { return view.window(); })) {
        Hold(state.commentView, view);
        // By key, because the host may keep a number there. A view that raises leaves the old one in place.
        objc::Guard([&] { Hold(state.taskId, view.valueForKey("taskId"_ns)); });
        DebugLog(u"[FC] ✅ CommentView"_ns);
        PostDanmuServiceReady();
    }
}

} // namespace
} // namespace corvel::wechat

std::span<const corvel::MethodHook> corvel::WeChatHooks() {
    using namespace wechat;
    static constexpr MethodHook kHooks[] = {
        After<CommentView, "didMoveToWindow", &MovedToWindow>(),
        PassThrough<CommentView, "didCommitText:">(),
    };
    return kHooks;
}
