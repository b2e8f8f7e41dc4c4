#pragma once
// Xiaohongshu's adapter, as the table of hosts sees it.

#include "adapters/method_hook.hpp"
#include "adapters/send_table.hpp"

namespace corvel {

/// The hooks of Xiaohongshu's decorate view, comment bar and messaging engine.
std::span<const MethodHook> XiaohongshuHooks();
/// The ways to send, in the order in which they are tried.
std::span<const SendPath> XiaohongshuSendPaths();

} // namespace corvel

#pragma GCC visibility push(default)
extern "C" {
/// Whether Xiaohongshu's decorate view or comment bar is held. Main thread, like the next.
bool XHS_IsReady();
/// Sends a comment in Xiaohongshu; see HostApp::send.
void XHS_SendMessage(objc::id text);
}
#pragma GCC visibility pop
