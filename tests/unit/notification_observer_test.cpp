// Block observers of the notification centre.

#include "apple/foundation/notifications.hpp"
#include "apple/foundation/thread.hpp"
#include "apple/foundation/user_defaults.hpp"

#include "apple/dispatch/queue.hpp"
#include "counted_object.hpp"
#include "runtime/clock.hpp"
#include "runtime/variants.hpp"

#include <cstdlib>
#include <gtest/gtest.h>

namespace corvel {
namespace {

using test::Counted;
using test::NewCounted;

ns::NotificationCenter Center() {
    return ns::NotificationCenter::defaultCenter();
}

template <class F> ns::Object Observe(ns::String name, F function, ns::OperationQueue queue, ns::Object object = {}) {
    return Center().addObserverForName(name, object, queue,
                                       objc::MakeBlock<void(ns::Notification)>(std::move(function)));
}

void Remove(ns::Object observer) {
    Center().removeObserver(observer);
}

TEST(BlockObserver, OnTheMainQueueRunsBeforeThePostReturns) {
    int calls = 0;
    const auto observer =
        Observe("CorvelTestNote"_ns, [&](ns::Notification) { ++calls; }, ns::OperationQueue::mainQueue());
    Center().postNotificationName("CorvelTestNote"_ns, nullptr);
    EXPECT_EQ(calls, 1);
    Center().postNotificationName("CorvelOtherNote"_ns, nullptr);
    EXPECT_EQ(calls, 1);
    Remove(observer);
    Center().postNotificationName("CorvelTestNote"_ns, nullptr);
    EXPECT_EQ(calls, 1);
}

TEST(BlockObserver, WithoutAQueueRunsAtOnceToo) {
    ns::String seen;
    const auto observer = Observe(
        "CorvelTestNote"_ns, [&](ns::Notification note) { seen = objc::Send<"name", ns::String>(note); }, nullptr);
    Center().postNotificationName("CorvelTestNote"_ns, nullptr);
    EXPECT_TRUE(seen.isEqualToString("CorvelTestNote"_ns));
    Remove(observer);
}

TEST(BlockObserver, HearsOnlyItsObject) {
    const auto sender = ns::New<ns::Object>();
    const auto stranger = ns::New<ns::Object>();
    int calls = 0;
    const auto observer = Observe("CorvelTestNote"_ns, [&](ns::Notification) { ++calls; }, nullptr, sender.get());
    Center().postNotificationName("CorvelTestNote"_ns, stranger.get());
    Center().postNotificationName("CorvelTestNote"_ns, nullptr);
    EXPECT_EQ(calls, 0);
    Center().postNotificationName("CorvelTestNote"_ns, sender.get());
    EXPECT_EQ(calls, 1);
    Remove(observer);
}

TEST(BlockObserver, LivesUntilItIsRemoved) {
    ASSERT_EQ(Counted::alive, 0);
    ns::Object observer;
    {
        const auto captured = NewCounted();
        observer = Observe("CorvelTestNote"_ns, [captured](ns::Notification) {}, nullptr);
    }
    Center().postNotificationName("CorvelTestNote"_ns, nullptr);
    EXPECT_EQ(Counted::alive, 1);
    objc::Send<"removeObserver:name:object:", void>(Center(), observer, "CorvelOtherNote"_ns, ns::Object{});
    EXPECT_EQ(Counted::alive, 1) << "removed for another name only";
    Remove(observer);
    EXPECT_EQ(Counted::alive, 0);
}

TEST(BlockObserver, MayRemoveItselfWhileItRuns) {
    ASSERT_EQ(Counted::alive, 0);
    int calls = 0;
    ns::Object observer;
    observer = Observe(
        "CorvelTestNote"_ns,
        [&calls, &observer, held = NewCounted()](ns::Notification) {
            Remove(observer);
            calls += static_cast<int>(held->retainCount() != 0);
        },
        ns::OperationQueue::mainQueue());
    Center().postNotificationName("CorvelTestNote"_ns, nullptr);
    Center().postNotificationName("CorvelTestNote"_ns, nullptr);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(Counted::alive, 0);
}

TEST(BlockObserver, OnTheMainQueueWaitsForTheMainThreadWhenPostedElsewhere) {
    int onMain = 0;
    int elsewhere = 0;
    const auto observer = Observe(
        "CorvelTestNote"_ns, [&](ns::Notification) { ++(ns::Thread::isMainThread() ? onMain : elsewhere); },
        ns::OperationQueue::mainQueue());
    int behindThePost = -1;
    const auto post = [&] {
        dispatch::AsyncInBackground([&] {
            Center().postNotificationName("CorvelTestNote"_ns, nullptr);
            behindThePost = onMain;
        });
        sim::clock::Drain();
    };
    post();
    EXPECT_EQ(onMain, 1);
    EXPECT_EQ(behindThePost, 1) << "the poster waits";
    EXPECT_EXIT(
        {
            sim::ChooseVariants("observer-queue");
            post();
            std::_Exit(onMain == 2 && behindThePost == 1 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "")
        << "the other way it goes on at once";
    EXPECT_EQ(elsewhere, 0);
    Remove(observer);
}

TEST(BlockObserver, OfTheDefaultsMayReadThemWhileTheWriterWaits) {
    ns::Object read;
    const auto observer = Observe(
        NSUserDefaultsDidChangeNotification,
        [&](ns::Notification) { read = ns::UserDefaults::standardUserDefaults().objectForKey("Corvel.test"_ns); },
        ns::OperationQueue::mainQueue());
    dispatch::AsyncInBackground(
        [] { ns::UserDefaults::standardUserDefaults().setObject("written"_ns, "Corvel.test"_ns); });
    sim::clock::Drain();
    EXPECT_TRUE(read.isEqual("written"_ns));
    Remove(observer);
    ns::UserDefaults::standardUserDefaults().removeObjectForKey("Corvel.test"_ns);
}

} // namespace
} // namespace corvel
