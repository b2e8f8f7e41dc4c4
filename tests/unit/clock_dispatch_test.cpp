// The simulated clock and what waits on it: main-queue blocks, delays, background sleeps.

#include "runtime/clock.hpp"

#include "apple/dispatch/queue.hpp"
#include "apple/foundation/date.hpp"
#include "apple/foundation/thread.hpp"
#include "counted_object.hpp"
#include "runtime/autorelease.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <thread>
#include <vector>

namespace corvel {
namespace {

using ns::Thread;
using test::Counted;
using test::NewCounted;
namespace clock = sim::clock;

constexpr std::int64_t kSecond = 1'000'000'000;

class ClockTest : public testing::Test {
  protected:
    void SetUp() override {
        clock::Drain();
        start_ = clock::Now();
    }

    /// Notes a name and how long ago the test began, in tenths of a second.
    void Note(const std::string &name) {
        log_.push_back(name + "@" + std::to_string(std::lround((clock::Now() - start_) * 10)));
    }

    std::vector<std::string> log_;
    double start_ = 0;
};

using Names = std::vector<std::string>;

TEST_F(ClockTest, TimeStandsStillUntilItIsMoved) {
    clock::Drain();
    EXPECT_EQ(clock::Now(), start_);
    clock::Advance(1.5);
    EXPECT_DOUBLE_EQ(clock::Now(), start_ + 1.5);
}

TEST_F(ClockTest, WorkRunsByDueTimeThenByOrderOfScheduling) {
    clock::Schedule(2, [&] { Note("c"); });
    clock::Schedule(1, [&] { Note("a"); });
    clock::Schedule(1, [&] { Note("b"); });
    clock::Schedule(0, [&] { Note("first"); });
    clock::Advance(5);
    EXPECT_EQ(log_, (Names{"first@0", "a@10", "b@10", "c@20"}));
}

TEST_F(ClockTest, NothingRunsBeforeItsTime) {
    clock::Schedule(1, [&] { Note("due"); });
    clock::Drain();
    clock::Advance(0.9);
    EXPECT_TRUE(log_.empty());
    clock::Advance(0.1);
    EXPECT_EQ(log_, Names{"due@10"});
}

TEST_F(ClockTest, ManySmallAdvancesReachWhatOneLargeOneDoes) {
    clock::Schedule(1, [&] { Note("due"); });
    for (int i = 0; i < 10; ++i) {
        clock::Advance(0.1);
    }
    EXPECT_EQ(log_, Names{"due@10"});
}

TEST_F(ClockTest, WorkScheduledOnTheWayRunsInTheSameAdvance) {
    clock::Schedule(1, [&] {
        Note("outer");
        clock::Schedule(0, [&] { Note("at once"); });
        clock::Schedule(1, [&] { Note("later"); });
        clock::Schedule(5, [&] { Note("too late"); });
    });
    clock::Advance(3);
    EXPECT_EQ(log_, (Names{"outer@10", "at once@10", "later@20"}));
    clock::Advance(3);
    EXPECT_EQ(log_.back(), "too late@60");
}

TEST_F(ClockTest, CancelledWorkDoesNotRun) {
    const auto first = clock::Schedule(1, [&] { Note("cancelled"); });
    const auto second = clock::Schedule(1, [&] { Note("kept"); });
    EXPECT_NE(first, second);
    EXPECT_NE(first, 0U);
    clock::Cancel(first);
    clock::Cancel(first);
    clock::Cancel(0);
    clock::Advance(1);
    EXPECT_EQ(log_, Names{"kept@10"});
    clock::Cancel(second);
}

TEST_F(ClockTest, WorkMayAdvanceTheClockItself) {
    clock::Schedule(1, [&] {
        clock::Advance(2);
        Note("after its own advance");
    });
    clock::Schedule(2, [&] { Note("inside it"); });
    clock::Advance(1.5);
    EXPECT_EQ(log_, (Names{"inside it@20", "after its own advance@30"}));
    EXPECT_DOUBLE_EQ(clock::Now(), start_ + 3) << "time does not go back";
}

TEST_F(ClockTest, NegativeAndNonsensicalDelaysAreNone) {
    clock::Schedule(-3, [&] { Note("negative"); });
    clock::Schedule(std::nan(""), [&] { Note("nan"); });
    clock::Schedule(HUGE_VAL, [&] { Note("never"); });
    clock::Advance(-1);
    EXPECT_EQ(log_, (Names{"negative@0", "nan@0"}));
}

TEST_F(ClockTest, SkippedTimeRunsNothingUntilTheNextDrain) {
    clock::Schedule(1, [&] { Note("late"); });
    clock::Skip(4);
    EXPECT_TRUE(log_.empty());
    clock::Drain();
    EXPECT_EQ(log_, Names{"late@40"});
}

TEST_F(ClockTest, EachPieceOfWorkHasItsOwnAutoreleasePool) {
    ASSERT_EQ(Counted::alive, 0);
    clock::Schedule(0, [] {
        sim::Autoreleased(NewCounted());
        EXPECT_EQ(Counted::alive, 1);
    });
    clock::Schedule(0, [] { EXPECT_EQ(Counted::alive, 0); });
    clock::Drain();
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(ClockTest, TheDateFollowsIt) {
    const double before = ns::Date::date().timeIntervalSinceReferenceDate();
    clock::Advance(90);
    EXPECT_DOUBLE_EQ(ns::Date::date().timeIntervalSinceReferenceDate(), before + 90);
    EXPECT_DOUBLE_EQ((objc::SendClass<ns::Date, "timeIntervalSinceReferenceDate", double>()), before + 90);
}

TEST_F(ClockTest, TheDateReadsTheSameWhereverTheRunIsMade) {
    const auto date = ns::Date::dateWithTimeIntervalSinceReferenceDate(680002860);
    EXPECT_STREQ(date.descriptionWithLocale(ns::Locale::currentLocale()).UTF8String(), "2022-07-20 09:41:00 +0000");
}

using DispatchTest = ClockTest;

TEST_F(DispatchTest, MainQueueBlocksRunInOrderInALaterTurn) {
    dispatch::AsyncOnMain([&] {
        Note("first");
        dispatch::AsyncOnMain([&] { Note("nested"); });
    });
    dispatch::AsyncOnMain([&] { Note("second"); });
    EXPECT_TRUE(log_.empty());
    clock::Drain();
    EXPECT_EQ(log_, (Names{"first@0", "second@0", "nested@0"}));
}

TEST_F(DispatchTest, MainQueueBlocksRunOnTheMainThread) {
    bool main = false;
    dispatch::AsyncOnMain([&] { main = Thread::isMainThread(); });
    clock::Drain();
    EXPECT_TRUE(main);
}

TEST_F(DispatchTest, DelaysCountFromTheCall) {
    clock::Advance(0.5);
    dispatch::AfterOnMain(3 * kSecond, [&] { Note("after"); });
    clock::Advance(2.9);
    EXPECT_TRUE(log_.empty());
    clock::Advance(0.2);
    EXPECT_EQ(log_, Names{"after@35"});
}

TEST_F(DispatchTest, TimesAddUpAndStopAtForever) {
    constexpr std::uint64_t kForever = ~std::uint64_t{0};
    const std::uint64_t now = dispatch_time(0, 0);
    EXPECT_NE(now, 0U);
    EXPECT_EQ(dispatch_time(now, kSecond), now + kSecond);
    EXPECT_EQ(dispatch_time(dispatch_time(0, kSecond), -kSecond), now);
    EXPECT_EQ(dispatch_time(kForever, kSecond), kForever);
    EXPECT_EQ(dispatch_time(kForever - 1, kSecond), kForever);
    dispatch_after(kForever, &_dispatch_main_q, objc::MakeBlock<void()>([&] { Note("never"); }));
    dispatch_after(dispatch_time(0, -kSecond), &_dispatch_main_q, objc::MakeBlock<void()>([&] { Note("overdue"); }));
    clock::Advance(100);
    EXPECT_EQ(log_, Names{"overdue@0"});
}

TEST_F(DispatchTest, ABlockIsReleasedOnceItHasRun) {
    ASSERT_EQ(Counted::alive, 0);
    dispatch::AsyncOnMain([held = NewCounted()] {});
    dispatch::AfterOnMain(kSecond, [held = NewCounted()] {});
    EXPECT_EQ(Counted::alive, 2);
    clock::Drain();
    EXPECT_EQ(Counted::alive, 1);
    clock::Advance(1);
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(DispatchTest, GlobalQueueBlocksRunOnAnotherThreadThatFoundationKnows) {
    std::thread::id worker;
    bool main = true;
    bool known = false;
    dispatch::AsyncInBackground([&] {
        worker = std::this_thread::get_id();
        main = Thread::isMainThread();
        known = static_cast<bool>(objc::SendClass<Thread, "currentThread", Thread>());
    });
    EXPECT_EQ(worker, std::thread::id{});
    clock::Drain();
    EXPECT_NE(worker, std::thread::id{});
    EXPECT_NE(worker, std::this_thread::get_id());
    EXPECT_FALSE(main);
    EXPECT_TRUE(known);
}

TEST_F(DispatchTest, ABackgroundSleepEndsOnTheClockAndGoesOnToTheMainQueue) {
    dispatch::AsyncInBackground([&] {
        Note("background");
        Thread::sleepForTimeInterval(3);
        Note("awake");
        EXPECT_FALSE(Thread::isMainThread());
        dispatch::AsyncOnMain([&] {
            Note("main");
            EXPECT_TRUE(Thread::isMainThread());
        });
        Note("done");
    });
    clock::Advance(2.9);
    EXPECT_EQ(log_, Names{"background@0"});
    clock::Advance(0.1);
    EXPECT_EQ(log_, (Names{"background@0", "awake@30", "done@30", "main@30"}));
}

TEST_F(DispatchTest, SeveralSleepersTakeTurns) {
    for (const char *name : {"a", "b"}) {
        dispatch::AsyncInBackground([this, name] {
            for (int i = 0; i < 3; ++i) {
                Thread::sleepForTimeInterval(1);
                Note(name);
            }
        });
    }
    clock::Advance(10);
    EXPECT_EQ(log_, (Names{"a@10", "b@10", "a@20", "b@20", "a@30", "b@30"}));
}

TEST_F(DispatchTest, ABackgroundBlockReleasesItsCaptures) {
    ASSERT_EQ(Counted::alive, 0);
    dispatch::AsyncInBackground([held = NewCounted()] { Thread::sleepForTimeInterval(1); });
    clock::Drain();
    EXPECT_EQ(Counted::alive, 1);
    clock::Advance(1);
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(DispatchTest, ASleepingMainThreadMovesTimeButRunsNothing) {
    dispatch::AfterOnMain(kSecond, [&] { Note("due meanwhile"); });
    Thread::sleepForTimeInterval(2);
    Note("slept");
    clock::Drain();
    EXPECT_EQ(log_, (Names{"slept@20", "due meanwhile@20"}));
}

} // namespace
} // namespace corvel
