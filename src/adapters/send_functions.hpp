#pragma once
// The functions that the library exports for each host: is a comment object captured, and send this text.
// Main thread only, like the host methods that capture those objects.

#include "objc/runtime.hpp"

#pragma GCC visibility push(default)
extern "C" {
/// Whether Douyin's comment store or comment fragment is captured.
bool DY_IsReady();
/// Whether Xiaohongshu's decorate view or comment bar is captured.
bool XHS_IsReady();
/// Whether Kuaishou's comment bar service or comment service is captured; the preview component does not count.
bool KS_IsReady();
/// Whether the comment view of WeChat Channels is captured.
bool FC_IsReady();

/// Sends the text (a string; nil or empty sends "额") as a live comment. The outcome goes to the debug log only,
/// and no exception of the host passes.
void DY_SendMessage(objc::id text);
/// The same in Xiaohongshu.
void XHS_SendMessage(objc::id text);
/// The same in Kuaishou.
void KS_SendMessage(objc::id text);
/// The same in WeChat Channels.
void FC_SendMessage(objc::id text);
}
#pragma GCC visibility pop
