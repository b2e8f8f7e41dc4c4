#pragma once
// Kuaishou's adapter, as the table of hosts sees it.

#include "adapters/method_hook.hpp"
#include "adapters/send_table.hpp"

namespace corvel {

/// The hooks of Kuaishou's comment services and preview component.
std::span<const MethodHook> KuaishouHooks();
/// The ways to send, in the order in which they are tried.
std::span<const SendPath> KuaishouSendPaths();

} // namespace corvel

#pragma GCC visibility push(default)
extern "C" {
/// Whether Kuaishou's comment bar service or comment service is held; the preview component does not count, although a
/// send can use it. Main thread, like the next.
bool KS_IsReady();
/// Sends a comment in Kuaishou; see HostApp::send.
void KS_SendMessage(objc::id text);
}
#pragma GCC visibility pop
