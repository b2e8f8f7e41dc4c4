#include "adapters/service_ready.hpp"

#include "apple/foundation/notifications.hpp"
#include "objc/guard.hpp"

namespace corvel {

void PostDanmuServiceReady() {
    objc::Guard([] { ns::NotificationCenter::defaultCenter().postNotificationName("DanmuServiceReady"_ns, nullptr); });
}

} // namespace corvel
