// Platform exceptions passing through C++ frames, and the one place that catches them.

#include "objc/guard.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/string.hpp"
#include "counted_object.hpp"
#include "runtime/autorelease.hpp"
#include "runtime_support.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace corvel {
namespace {

using test::Counted;
using test::NewCounted;

/// Leaves its name when it is destroyed.
class Trail {
  public:
    Trail(std::vector<std::string> &log, const char *name) : log_(log), name_(name) {}
    Trail(const Trail &) = delete;
    Trail &operator=(const Trail &) = delete;
    ~Trail() {
        log_.push_back(name_);
    }

  private:
    std::vector<std::string> &log_;
    std::string name_;
};

std::string Text(objc::Object string) {
    return string ? objc::As<ns::String>(string).UTF8String() : "(nil)";
}

TEST(Guard, ReturnsTrueAndReportsNothingWhenNothingIsRaised) {
    bool ran = false;
    bool caught = false;
    EXPECT_TRUE(objc::Guard([&] { ran = true; }, [&](objc::Object) { caught = true; }));
    EXPECT_TRUE(ran);
    EXPECT_FALSE(caught);
}

TEST(Guard, GivesTheReasonOfWhatIsRaised) {
    std::string reason;
    bool went = false;
    EXPECT_FALSE(objc::Guard(
        [&] {
            test::Raise(u"直播间已关闭"_ns);
            went = true;
        },
        [&](objc::Object text) { reason = Text(text); }));
    EXPECT_EQ(reason, "直播间已关闭");
    EXPECT_FALSE(went);
}

TEST(Guard, AMissingReasonIsNil) {
    std::string reason;
    objc::Guard([] { test::Raise(nullptr); }, [&](objc::Object text) { reason = Text(text); });
    EXPECT_EQ(reason, "(nil)");
}

TEST(Guard, CatchesWhatFoundationRaises) {
    std::string reason;
    EXPECT_FALSE(objc::Guard([] { objc::SendClass<ns::Array, "array", ns::Array>().objectAtIndex(3); },
                             [&](objc::Object text) { reason = Text(text); }));
    EXPECT_NE(reason.find('3'), std::string::npos) << reason;
}

TEST(Guard, CatchesAMessageThatNobodyAnswers) {
    EXPECT_FALSE(objc::Guard([] { objc::Send<"corvelNobodyAnswersThis", void>("text"_ns); }));
}

__attribute__((noinline)) void RaiseBelow(std::vector<std::string> &log, int depth) {
    const Trail trail(log, std::to_string(depth).c_str());
    if (depth == 0) {
        test::Raise("deep"_ns);
    } else {
        RaiseBelow(log, depth - 1);
    }
    log.emplace_back("unreachable");
}

TEST(Guard, DestructorsOfTheFramesBetweenRunFromTheInside) {
    std::vector<std::string> log;
    EXPECT_FALSE(objc::Guard([&] {
        const Trail trail(log, "body");
        RaiseBelow(log, 2);
    }));
    EXPECT_EQ(log, (std::vector<std::string>{"0", "1", "2", "body"}));
}

TEST(Guard, ReferencesHeldByThoseFramesAreReleased) {
    ASSERT_EQ(Counted::alive, 0);
    objc::Guard([] {
        const auto held = NewCounted();
        const auto copy = held;
        test::Raise("leave"_ns);
    });
    EXPECT_EQ(Counted::alive, 0);
}

TEST(Guard, TheExceptionOutlivesThePoolsThatItUnwinds) {
    std::string reason;
    objc::Guard(
        [] {
            const sim::AutoreleasePool outer;
            const sim::AutoreleasePool inner;
            const std::string text(64, 'r');
            test::Raise(ns::String::stringWithUTF8String(text.c_str()));
        },
        [&](objc::Object text) { reason = Text(text); });
    EXPECT_EQ(reason, std::string(64, 'r'));
}

TEST(Guard, NestedGuardsCatchTheirOwn) {
    std::vector<std::string> log;
    EXPECT_TRUE(objc::Guard(
        [&] {
            EXPECT_FALSE(
                objc::Guard([] { test::Raise("inner"_ns); }, [&](objc::Object text) { log.push_back(Text(text)); }));
            log.emplace_back("between");
            EXPECT_FALSE(
                objc::Guard([] { test::Raise("second"_ns); }, [&](objc::Object text) { log.push_back(Text(text)); }));
        },
        [&](objc::Object text) { log.push_back("outer " + Text(text)); }));
    EXPECT_EQ(log, (std::vector<std::string>{"inner", "between", "second"}));
}

TEST(Guard, WhatTheHandlerRaisesPassesToTheOuterGuard) {
    std::string outer;
    EXPECT_FALSE(objc::Guard(
        [&] { objc::Guard([] { test::Raise("first"_ns); }, [](objc::Object) { test::Raise("from the handler"_ns); }); },
        [&](objc::Object text) { outer = Text(text); }));
    EXPECT_EQ(outer, "from the handler");
}

TEST(Guard, ExceptionsOfCppPassThrough) {
    bool caught = false;
    EXPECT_THROW(objc::Guard([] { throw std::runtime_error("not ours"); }, [&](objc::Object) { caught = true; }),
                 std::runtime_error);
    EXPECT_FALSE(caught);
}

void RaisingDealloc(ns::Object self, objc::SEL) {
    objc::SendSuper<"dealloc", void>(self);
    test::Raise("from dealloc"_ns);
}

TEST(Guard, AReleaseWhoseDeallocRaisesCanBeCaught) {
    const objc::MethodEntry methods[] = {objc::MethodNamed<"dealloc", &RaisingDealloc>()};
    const objc::Class cls = test::RegisterClass("CorvelRaisingDealloc", "NSObject", methods);
    std::string reason;
    EXPECT_FALSE(objc::Guard([&] { const auto object = test::NewInstance(cls); },
                             [&](objc::Object text) { reason = Text(text); }));
    EXPECT_EQ(reason, "from dealloc");
}

} // namespace
} // namespace corvel
