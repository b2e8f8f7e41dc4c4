#include "runtime/runtime.hpp"

#include "runtime/autorelease.hpp"
#include "runtime/bundle.hpp"
#include "runtime/deallocation.hpp"
#include "runtime/descriptions.hpp"
#include "runtime/dispatch.hpp"
#include "runtime/exception_reasons.hpp"
#include "runtime/foundation_differences.hpp"
#include "runtime/json_serialization.hpp"
#include "runtime/live_objects.hpp"
#include "runtime/notification_queue.hpp"
#include "runtime/string_differences.hpp"
#include "runtime/user_defaults.hpp"
#include "runtime/wall_clock.hpp"

namespace sim {

void InstallRuntime() {
    const AutoreleasePool pool;
    InstallObjectCount();
    InstallDeallocationHooks();
    InstallStringDifferences();
    InstallFoundationDifferences();
    InstallDescriptions();
    InstallExceptionReasons();
    InstallJsonSerialization();
    InstallUserDefaults(); // reads strings, hence after the string differences
    InstallNotificationObservers();
    InstallThreadSleep();
    InstallWallClock();
    InstallBundleIdentity();
}

} // namespace sim
