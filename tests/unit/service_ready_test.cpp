#include "adapters/service_ready.hpp"

#include "apple/foundation/notifications.hpp"
#include "runtime_support.hpp"

#include <gtest/gtest.h>

namespace corvel {
namespace {

TEST(ServiceReady, NamesNoSenderEachTimeItIsPosted) {
    const test::Pool pool;
    const auto center = ns::NotificationCenter::defaultCenter();
    int calls = 0;
    const ns::Object observer = center.addObserverForName(
        "DanmuServiceReady"_ns, nullptr, nullptr, objc::MakeBlock<void(ns::Notification)>([&](ns::Notification note) {
            ++calls;
            EXPECT_FALSE((objc::Send<"object", ns::Object>(note)));
            EXPECT_FALSE(note.userInfo());
        }));
    PostDanmuServiceReady();
    PostDanmuServiceReady();
    EXPECT_EQ(calls, 2);
    center.removeObserver(observer);
}

} // namespace
} // namespace corvel
