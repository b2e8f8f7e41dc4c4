// What happens when the library is loaded: the only code that runs by itself.

#include "adapters/douyin/douyin.hpp"
#include "adapters/hosts.hpp"
#include "adapters/wechat/plugin_switch.hpp"
#include "apple/dispatch/queue.hpp"
#include "apple/foundation/notifications.hpp"
#include "overlay/danmu_window.hpp"
#include "overlay/gesture_proxy.hpp"
#include "overlay/init_ui.hpp"
#include "startup/handlers.hpp"

namespace corvel {
namespace {

constexpr std::int64_t kFirstBuildDelay = 3'000'000'000; // nanoseconds

/// Schedules the work of start-up; nothing of it runs before the main queue does.
void ScheduleStartUp() {
    dispatch::AsyncOnMain([] { RegisterWeChatPluginSwitch(); });
    dispatch::AfterOnMain(kFirstBuildDelay, [] { InitUI(); });
    // The observer lives as long as the process, so its token is not kept. Its block runs on the main queue already
    // and still takes one more turn of it: the adapter that posted is inside a host method, which comes first.
    ns::NotificationCenter::defaultCenter().addObserverForName(
        "DanmuServiceReady"_ns, nullptr, ns::OperationQueue::mainQueue(),
        objc::MakeBlock<void(ns::Notification)>([](ns::Notification) { dispatch::AsyncOnMain([] { InitUI(); }); }));
}

} // namespace

/// Called by the loader, once.
__attribute__((constructor)) static void Load() {
    RegisterDanmuWindowClass();
    RegisterGestureProxyClass();
    RegisterHandlers();

    ScheduleStartUp();
    ScheduleLatencyHooks();
    for (const HostApp &host : HostApps()) {
        InstallMethodHooks(host.hooks());
    }
}

} // namespace corvel
