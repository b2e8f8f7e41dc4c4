#pragma once
// How often each notification has been posted to the default centre.

#include <string>

namespace sim::driver {

/// Begins to count. Once, before the library is injected.
void CountNotifications();

/// How often a notification of that name has been posted since.
int NotificationCount(const std::string &name);

} // namespace sim::driver
