#pragma once
// Xiaohongshu's adapter, as the table of hosts sees it.

#include "objc/runtime.hpp"

namespace corvel {

/// Hooks Xiaohongshu's decorate view, comment bar and messaging engine.
void InstallXiaohongshuHooks();

} // namespace corvel

#pragma GCC visibility push(default)
extern "C" {
/// Whether Xiaohongshu's decorate view or comment bar is held. Main thread, like the next.
bool XHS_IsReady();
/// Sends a comment in Xiaohongshu; see HostApp::send.
void XHS_SendMessage(objc::id text);
}
#pragma GCC visibility pop
