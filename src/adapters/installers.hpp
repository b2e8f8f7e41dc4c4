#pragma once
// What start-up runs of the adapters, once, while the library is being loaded, in the order of this list.
// Every one runs in every host: a class that the host lacks leaves its hooks uninstalled.

namespace corvel {

/// Arranges that the Douyin latency options are applied three seconds from now, when at least one is switched on.
void ScheduleLatencyHooks();
/// Hooks Douyin's comment fragment and comment store.
void InstallDouyinHooks();
/// Hooks Xiaohongshu's decorate view, comment bar and messaging engine.
void InstallXiaohongshuHooks();
/// Hooks Kuaishou's comment services and preview component.
void InstallKuaishouHooks();
/// Hooks the comment view of WeChat Channels.
void InstallWeChatHooks();

} // namespace corvel
