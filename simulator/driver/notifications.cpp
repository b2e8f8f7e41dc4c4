#include "driver/notifications.hpp"

#include "apple/foundation/notifications.hpp"
#include "script/values.hpp"

#include <map>

namespace sim::driver {
namespace {

std::map<std::string, int> counts;

} // namespace

void CountNotifications() {
    ns::NotificationCenter::defaultCenter().addObserverForName(
        {}, {}, {}, objc::MakeBlock<void(ns::Notification)>([](ns::Notification notification) {
            ++counts[script::TextOf(objc::Send<"name", ns::String>(notification))];
        }));
}

int NotificationCount(const std::string &name) {
    return counts[name];
}

} // namespace sim::driver
