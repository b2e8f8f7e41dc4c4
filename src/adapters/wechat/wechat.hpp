#pragma once
// WeChat's adapter, as the table of hosts sees it.

#include "objc/runtime.hpp"

namespace corvel {

/// Hooks WeChat's comment view.
void InstallWeChatHooks();

} // namespace corvel

#pragma GCC visibility push(default)
extern "C" {
/// Whether WeChat's comment view is held. Main thread, like the next.
bool FC_IsReady();
/// Sends a comment in WeChat; see HostApp::send.
void FC_SendMessage(objc::id text);
}
#pragma GCC visibility pop
