#pragma once
// Douyin's adapter, as start-up and the table of hosts see it.

#include "adapters/method_hook.hpp"
#include "adapters/send_table.hpp"

namespace corvel {

/// The hooks of Douyin's comment fragment and comment store.
std::span<const MethodHook> DouyinHooks();
/// The ways to send, in the order in which they are tried.
std::span<const SendPath> DouyinSendPaths();
/// Arranges that the latency options are applied three seconds from now, when at least one is switched on.
void ScheduleLatencyHooks();

} // namespace corvel

#pragma GCC visibility push(default)
extern "C" {
/// Whether Douyin's comment store or comment fragment is held. Main thread, like the next.
bool DY_IsReady();
/// Sends a comment in Douyin; see HostApp::send.
void DY_SendMessage(objc::id text);
}
#pragma GCC visibility pop
