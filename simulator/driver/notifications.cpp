#include "driver/notifications.hpp"

#include "apple/foundation/notifications.hpp"
#include "runtime/native_class.hpp"
#include "script/values.hpp"

#include <map>

namespace sim::driver {
namespace {

constexpr const char *kCounterClass = "SimNotificationCounter";

std::map<std::string, int> &Counts() {
    static std::map<std::string, int> counts;
    return counts;
}

void Posted(ns::Object, objc::SEL, ns::Notification notification) {
    ++Counts()[script::TextOf(objc::Send<"name", ns::String>(notification))];
}

} // namespace

void CountNotifications() {
    const objc::MethodEntry methods[] = {objc::MethodNamed<"posted:", &Posted>()};
    const objc::Class cls = RegisterClass(kCounterClass, "NSObject", {}, methods);
    objc::Send<"addObserver:selector:name:object:", void>(ns::NotificationCenter::defaultCenter(),
                                                          ns::Object{objc::AsObject(cls)}, objc::Selector<"posted:">(),
                                                          ns::String{}, ns::Object{});
}

int NotificationCount(const std::string &name) {
    const auto found = Counts().find(name);
    return found != Counts().end() ? found->second : 0;
}

} // namespace sim::driver
