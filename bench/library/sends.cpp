// A comment through each app's adapter against the app's own calls that it takes.

#include "adapters/douyin/adapter_state.hpp"
#include "adapters/hosts.hpp"
#include "adapters/kuaishou/adapter_state.hpp"
#include "adapters/wechat/adapter_state.hpp"
#include "adapters/xiaohongshu/adapter_state.hpp"
#include "measure.hpp"

namespace bench {
namespace {

/// By the fragment's store, as it is found in a room: asked for it, for its room, for a context, and to send that.
void SendBareDouyin(ns::String text) {
    const auto fragment = corvel::douyin::state.fragment.get();
    const ns::Object store = fragment.performSelector(objc::Selector<"store">());
    const ns::Object roomId = store.valueForKey("roomModel"_ns).valueForKey("identifier"_ns);
    const ns::Object context = store.performSelector(objc::Selector<"context">());
    context.setValue(text, "content"_ns);
    context.setValue(text, "plainText"_ns);
    context.setValue(roomId, "roomId"_ns);
    context.setValue(roomId, "identifier"_ns);
    store.performSelector(objc::Selector<"sendCommentWithCommentContext:completion:">(), context, nullptr);
}

void SendBareXiaohongshu(ns::String text) {
    objc::Send<"sendFasterChatMsg:", void>(corvel::xiaohongshu::state.decorateView.get(), text);
}

void SendBareKuaishou(ns::String text) {
    objc::Send<"comment:", void>(corvel::kuaishou::state.commentBarService.get(), text);
}

void SendBareWeChat(ns::String text) {
    objc::Send<"didCommitText:", bool>(corvel::wechat::state.commentView.get(), text);
}

} // namespace
} // namespace bench

CORVEL_BENCH BenchSend() {
    using namespace bench;
    constexpr void (*kBare[])(ns::String) = {&SendBareDouyin, &SendBareXiaohongshu, &SendBareKuaishou, &SendBareWeChat};
    const corvel::HostApp &host = corvel::PresentHost();
    const auto bare = kBare[static_cast<long>(corvel::DetectHostPlatform())];
    const ns::String text = u"主播今天状态真好"_ns;
    CountPair(
        std::string("send-") + ns::String(host.name).UTF8String(), [&] { host.send(text.pointer); },
        [&] { bare(text); });
}
