#include "adapters/method_hook.hpp"

#include "adapters/host_access.hpp"
#include "objc/block.hpp"
#include "objc/guard.hpp"
#include "runtime_support.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvel {
namespace {

using objc::MethodNamed;

/// Which functions ran, in order.
std::vector<std::string> calls;

/// A class family made anew for each test, because what a test hooks stays hooked.
///
///     Root: greet, ping       Middle: greet       Leaf: -       Sibling (of Leaf): -
class MethodHookTest : public testing::Test {
  protected:
    struct Host : ns::Object {
        using ns::Object::Object;

        long greet() const {
            return objc::Send<"greet", long>(*this);
        }
        long ping() const {
            return objc::Send<"ping", long>(*this);
        }
    };

    void SetUp() override {
        calls.clear();
        first = second = nullptr;
        root = Define("Root", "NSObject", {MethodNamed<"greet", &RootGreet>(), MethodNamed<"ping", &RootPing>()});
        middle = Define("Middle", class_getName(root), {MethodNamed<"greet", &MiddleGreet>()});
        leaf = Define("Leaf", class_getName(middle), {MethodNamed<"unrelated", &RootPing>()});
        sibling = Define("Sibling", class_getName(middle), {MethodNamed<"unrelated", &RootPing>()});
    }

    /// Registers a class under a name of this test's own.
    template <std::size_t N>
    static objc::Class Define(const std::string &name, const char *superclass, const objc::MethodEntry (&methods)[N]) {
        const std::string full = name + testing::UnitTest::GetInstance()->current_test_info()->name();
        return test::RegisterClass(full.c_str(), superclass, methods);
    }

    static long RootGreet(Host, objc::SEL) {
        calls.emplace_back("Root greet");
        return 1;
    }
    static long RootPing(Host, objc::SEL) {
        calls.emplace_back("Root ping");
        return 2;
    }
    static long MiddleGreet(Host, objc::SEL) {
        calls.emplace_back("Middle greet");
        return 3;
    }
    static Word First(objc::id self, objc::SEL selector) {
        calls.emplace_back("first");
        return reinterpret_cast<Word (*)(objc::id, objc::SEL)>(first)(self, selector);
    }
    static Word Second(objc::id self, objc::SEL selector) {
        calls.emplace_back("second");
        return reinterpret_cast<Word (*)(objc::id, objc::SEL)>(second)(self, selector);
    }

    static void Hook(objc::Class cls, const char *selector) {
        InstallMethodHook(cls, sel_registerName(selector), reinterpret_cast<objc::IMP>(&First), &first);
    }

    /// Sends greet to a new instance and tells what ran on the way.
    static std::vector<std::string> GreetingOf(objc::Class cls) {
        calls.clear();
        objc::As<Host>(test::NewInstance(cls).get()).greet();
        return calls;
    }

    using Trace = std::vector<std::string>;
    static objc::IMP first;
    static objc::IMP second;
    test::Pool pool;
    objc::Class root = nullptr;
    objc::Class middle = nullptr;
    objc::Class leaf = nullptr;
    objc::Class sibling = nullptr;
};

objc::IMP MethodHookTest::first;
objc::IMP MethodHookTest::second;

TEST_F(MethodHookTest, ObjectsOfHeirsThatWereMessagedBeforeRunItToo) {
    const auto old = test::NewInstance(leaf);
    objc::As<Host>(old.get()).greet();
    Hook(middle, "greet");
    calls.clear();
    objc::As<Host>(old.get()).greet();
    EXPECT_EQ(calls, (std::vector<std::string>{"first", "Middle greet"}));
    Hook(leaf, "ping"); // which is added, not replaced
    calls.clear();
    objc::As<Host>(old.get()).ping();
    EXPECT_EQ(calls, (std::vector<std::string>{"first", "Root ping"}));
}

TEST_F(MethodHookTest, ReplacesTheClassesOwnMethodForItAndItsHeirs) {
    Hook(middle, "greet");
    EXPECT_EQ(first, reinterpret_cast<objc::IMP>(&MiddleGreet));
    EXPECT_EQ(GreetingOf(middle), (Trace{"first", "Middle greet"}));
    EXPECT_EQ(GreetingOf(leaf), (Trace{"first", "Middle greet"}));
    EXPECT_EQ(GreetingOf(root), Trace{"Root greet"}) << "an ancestor with a method of its own";
}

TEST_F(MethodHookTest, OverridesAnInheritedMethodAndLeavesTheFamilyAlone) {
    Hook(leaf, "greet");
    EXPECT_EQ(first, reinterpret_cast<objc::IMP>(&MiddleGreet)) << "the nearest definition counts";
    EXPECT_EQ(GreetingOf(leaf), (Trace{"first", "Middle greet"}));
    EXPECT_EQ(GreetingOf(middle), Trace{"Middle greet"});
    EXPECT_EQ(GreetingOf(sibling), Trace{"Middle greet"});
    EXPECT_STREQ(method_getTypeEncoding(class_getInstanceMethod(leaf, sel_registerName("greet"))),
                 method_getTypeEncoding(class_getInstanceMethod(middle, sel_registerName("greet"))));
}

TEST_F(MethodHookTest, FindsADefinitionAnyNumberOfLevelsUp) {
    Hook(leaf, "ping");
    EXPECT_EQ(first, reinterpret_cast<objc::IMP>(&RootPing));
    EXPECT_EQ(objc::As<Host>(test::NewInstance(leaf).get()).ping(), 2);
    EXPECT_EQ(calls, (Trace{"first", "Root ping"}));
    calls.clear();
    objc::As<Host>(test::NewInstance(middle).get()).ping();
    EXPECT_EQ(calls, Trace{"Root ping"});
}

TEST_F(MethodHookTest, WithoutClassOrMethodNothingHappens) {
    Hook(nullptr, "greet");
    EXPECT_EQ(first, nullptr);
    Hook(leaf, "aSelectorThatNobodyDefines");
    EXPECT_EQ(first, nullptr);
    EXPECT_FALSE(test::NewInstance(leaf)->respondsToSelector(sel_registerName("aSelectorThatNobodyDefines")));
    EXPECT_EQ(GreetingOf(leaf), Trace{"Middle greet"});
}

TEST_F(MethodHookTest, HooksOnAnHeirAndItsAncestorDoNotMeet) {
    // The heir's slot holds what the ancestor had when the heir was hooked.
    InstallMethodHook(leaf, sel_registerName("greet"), reinterpret_cast<objc::IMP>(&Second), &second);
    Hook(middle, "greet");
    EXPECT_EQ(GreetingOf(leaf), (Trace{"second", "Middle greet"}));
    EXPECT_EQ(GreetingOf(sibling), (Trace{"first", "Middle greet"}));
}

struct Missing : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "AClassThatNoHostHas";
};
struct Hooked : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "MethodHookTestHooked";
};

TEST_F(MethodHookTest, ATableIsInstalledInItsOrderAndSkipsWhatTheHostLacks) {
    constexpr auto kBefore = [](Hooked) { calls.emplace_back("before"); };
    constexpr auto kAfter = [](Hooked) { calls.emplace_back("after"); };
    constexpr auto kNever = [](ns::Object) { calls.emplace_back("never"); };
    const objc::MethodEntry methods[] = {MethodNamed<"greet", &RootGreet>()};
    const objc::Class cls = test::RegisterClass(Hooked::kClassName, "NSObject", methods);
    ForEachHook(&InstallHook, {
                                  After<Missing, "greet", kNever>(),
                                  After<Hooked, "missing", kNever>(),
                                  After<Hooked, "greet", kAfter>(),
                                  Before<Hooked, "greet", kBefore>(),
                              });
    EXPECT_EQ(GreetingOf(cls), (Trace{"before", "Root greet", "after"}));
    EXPECT_EQ(objc::As<Host>(test::NewInstance(cls).get()).greet(), 1);
}

/// What a method with arguments of several kinds received.
struct Received {
    objc::id self;
    std::string selector;
    objc::id object;
    long integer;
    bool flag;
    objc::id block;
    unsigned long wide;
    int calls;
} received;

bool TakeAll(ns::Object self, objc::SEL selector, ns::Object object, long integer, bool flag,
             objc::Block<long(long)> block, unsigned long wide) {
    received = {.self = self.pointer,
                .selector = sel_getName(selector),
                .object = object.pointer,
                .integer = integer,
                .flag = flag,
                .block = block.pointer,
                .wide = wide,
                .calls = received.calls + 1};
    return flag;
}

struct Taker : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "MethodHookTestTaker";
};
objc::id firstArgument;

TEST_F(MethodHookTest, EveryArgumentAndTheResultPassUntouched) {
    const objc::MethodEntry methods[] = {MethodNamed<"take:count:flag:block:mask:", &TakeAll>()};
    const objc::Class cls = test::RegisterClass(Taker::kClassName, "NSObject", methods);
    constexpr auto kTaken = [](Taker, objc::Object first) { firstArgument = first.pointer; };
    ForEachHook(&InstallHook, {PassThrough<Taker, "take:count:flag:block:mask:">(),
                               After<Taker, "take:count:flag:block:mask:", kTaken>()});

    const objc::Ref<ns::Object> taker = test::NewInstance(cls);
    auto twice = objc::MakeBlock<long(long)>([](long n) { return 2 * n; });
    const objc::Block<long(long)> block = twice;
    for (const bool flag : {true, false}) {
        received = {};
        const bool result =
            objc::Send<"take:count:flag:block:mask:", bool>(taker.get(), ns::Object{"text"_ns}, -5L, flag, block, ~0UL);
        EXPECT_EQ(result, flag);
        EXPECT_EQ(received.calls, 1);
        EXPECT_EQ(received.self, taker.get().pointer);
        EXPECT_EQ(received.selector, "take:count:flag:block:mask:");
        EXPECT_EQ(received.object, "text"_ns.pointer);
        EXPECT_EQ(received.integer, -5);
        EXPECT_EQ(received.flag, flag);
        EXPECT_EQ(received.block, block.pointer);
        EXPECT_EQ(received.wide, ~0UL);
        EXPECT_EQ(firstArgument, "text"_ns.pointer);
    }
}

void Explode(ns::Object, objc::SEL) {
    calls.emplace_back("explode");
    test::Raise("out of order"_ns);
}

struct Raiser : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "MethodHookTestRaiser";
};

TEST_F(MethodHookTest, WhatTheHostRaisesReachesTheHostsCaller) {
    const objc::MethodEntry methods[] = {MethodNamed<"explode", &Explode>()};
    const objc::Class cls = test::RegisterClass(Raiser::kClassName, "NSObject", methods);
    constexpr auto kNever = [](Raiser) { calls.emplace_back("never"); };
    ForEachHook(&InstallHook, {After<Raiser, "explode", kNever>()});

    const objc::Ref<ns::Object> raiser = test::NewInstance(cls);
    std::string reason;
    EXPECT_FALSE(objc::Guard([&] { objc::Send<"explode", void>(raiser.get()); },
                             [&](objc::Object text) { reason = objc::As<ns::String>(text).UTF8String(); }));
    EXPECT_EQ(reason, "out of order");
    EXPECT_EQ(calls, Trace{"explode"});
}

/// Gives up the last reference to itself and to what it is given, as a component does that unmounts as it mounts.
std::vector<objc::Ref<ns::Object>> lastReferences;
void GiveUp(ns::Object, objc::SEL, ns::Object) {
    lastReferences.clear();
}

struct Giver : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "MethodHookTestGiver";
};

TEST_F(MethodHookTest, WhatAMethodGivesUpLivesUntilTheHookIsDone) {
    const objc::MethodEntry methods[] = {MethodNamed<"giveUp:", &GiveUp>()};
    const objc::Class cls = test::RegisterClass(Giver::kClassName, "NSObject", methods);
    constexpr auto kDescribe = [](Giver self, objc::Object first) {
        calls.emplace_back(objc::As<ns::String>(self.description()).UTF8String() != nullptr ? "self" : "");
        calls.emplace_back(objc::As<ns::String>(ns::Object{first}.description()).UTF8String() != nullptr ? "first"
                                                                                                         : "");
    };
    ForEachHook(&InstallHook, {After<Giver, "giveUp:", kDescribe>()});
    lastReferences = {test::NewInstance(cls), test::NewInstance(root)};
    objc::Send<"giveUp:", void>(lastReferences[0].get(), lastReferences[1].get());
    EXPECT_EQ(calls, (Trace{"self", "first"})); // the sanitizers tell whether it was still there
}

/// Calls a hooked method of its own as it goes.
struct Goer : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "MethodHookTestGoer";
};
void SetUpGoer(ns::Object, objc::SEL) {
    calls.emplace_back("set up");
}
void DeallocGoer(ns::Object self, objc::SEL) {
    objc::Send<"setUp", void>(objc::As<Goer>(self));
    objc::SendSuper<"dealloc", void>(self);
}
objc::Ref<Goer> heldGoer;

TEST_F(MethodHookTest, WhatIsBeingDeallocatedIsNotHeld) {
    const objc::MethodEntry methods[] = {MethodNamed<"setUp", &SetUpGoer>(), MethodNamed<"dealloc", &DeallocGoer>()};
    const objc::Class cls = test::RegisterClass(Goer::kClassName, "NSObject", methods);
    constexpr auto kHold = [](Goer goer) { Hold(heldGoer, goer); };
    ForEachHook(&InstallHook, {After<Goer, "setUp", kHold>()});
    test::NewInstance(cls) = nullptr;
    EXPECT_EQ(calls, Trace{"set up"});
    EXPECT_FALSE(heldGoer);
    const auto another = test::NewInstance(cls);
    objc::Send<"setUp", void>(objc::As<Goer>(another.get()));
    EXPECT_EQ(heldGoer.get(), another.get());
    heldGoer = nullptr;
}

double Weigh(ns::Object, objc::SEL, double weight) {
    return weight;
}
long Number(ns::Object, objc::SEL, long number) {
    return number;
}
struct Scale : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "MethodHookTestScale";
};

TEST_F(MethodHookTest, MethodsOfOtherTypesAreLeftAlone) {
    const objc::MethodEntry methods[] = {MethodNamed<"weigh:", &Weigh>(), MethodNamed<"number:", &Number>()};
    const objc::Class cls = test::RegisterClass(Scale::kClassName, "NSObject", methods);
    constexpr auto kNever = [](Scale) { calls.emplace_back("never"); };
    constexpr auto kNeverWithObject = [](Scale, objc::Object) { calls.emplace_back("never"); };
    ForEachHook(&InstallHook, {After<Scale, "weigh:", kNever>(), After<Scale, "number:", kNeverWithObject>()});
    const auto scale = test::NewInstance(cls);
    EXPECT_EQ((objc::Send<"weigh:", double>(scale.get(), 2.5)), 2.5);
    EXPECT_EQ((objc::Send<"number:", long>(scale.get(), 7L)), 7);
    EXPECT_EQ(calls, Trace{});
}

} // namespace
} // namespace corvel
