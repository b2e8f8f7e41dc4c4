#pragma once
// WeChat's adapter, as the table of hosts sees it.

#include "adapters/method_hook.hpp"
#include "adapters/send_table.hpp"

namespace corvel {

/// The hooks of WeChat's comment view.
std::span<const MethodHook> WeChatHooks();
/// The ways to send, in the order in which they are tried.
std::span<const SendPath> WeChatSendPaths();

} // namespace corvel

#pragma GCC visibility push(default)
extern "C" {
/// Whether WeChat's comment view is held. Main thread, like the next.
bool FC_IsReady();
/// Sends a comment in WeChat; see HostApp::send.
void FC_SendMessage(objc::id text);
}
#pragma GCC visibility pop
