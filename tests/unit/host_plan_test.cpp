// What a plan may name of an app.

#include "hosts/host_class.hpp"
#include "hosts/inventory.hpp"
#include "hosts/keyed.hpp"

#include <gtest/gtest.h>

namespace sim::hosts {
namespace {

/// An app of one class, registered once.
void RegisterApp() {
    static const bool registered = [] {
        RegisterKeyedRoot("PlanTestRoot", "NSObject");
        HostClass room("PlanTestRoot", "PlanTestBase", "PlanTestRoom", "PlanTestLobby");
        room.Method<"open:">([](ns::Object, ns::Object door) { return door; });
        room.OptionalMethod<"close">(kNothing);
        room.ClassMethod<"shared">(kItself);
        HostClass plain("NSObject", "PlanTestPlainBase", "PlanTestPlain", "PlanTestPlainSibling");
        plain.Method<"open:">([](ns::Object, ns::Object door) { return door; });
        return true;
    }();
    ASSERT_TRUE(registered);
}

template <class Work> std::string ErrorOf(const Work &work) {
    try {
        work();
    } catch (const script::ScriptError &error) {
        return error.what();
    }
    return "";
}

const script::Place kPlace{"a.scn", 7};

std::string ErrorOf(const Plan &plan) {
    ThePlan() = plan;
    const std::string error = ErrorOf([] { CheckSetUp(); });
    ThePlan() = {};
    return error;
}

TEST(Plan, NamesOfTheAppAreTaken) {
    RegisterApp();
    EXPECT_EQ(
        ErrorOf({.lackedClasses = {{"PlanTestRoom", kPlace}},
                 .lackedMethods = {{{"PlanTestRoom", "open:"}, kPlace}, {{"PlanTestRoom", "shared"}, kPlace}},
                 .extraMethods = {{{"PlanTestRoom", "close"}, kPlace}},
                 .inheritedMethods = {{{"PlanTestRoom", "open:"}, kPlace}, {{"PlanTestRoom", "close"}, kPlace}},
                 .throwing = {{{"PlanTestRoom", "shared"}, {"x", kPlace}}, {{"PlanTestRoom", "key"}, {"x", kPlace}}},
                 .refusing = {{{"PlanTestRoom", "open:"}, kPlace}}}),
        "");
}

TEST(Plan, OtherNamesAreErrorsOfTheirLines) {
    RegisterApp();
    EXPECT_EQ(ErrorOf({.lackedClasses = {{"PlanTestRom", kPlace}}}), "a.scn:7: the app has no class PlanTestRom");
    EXPECT_EQ(ErrorOf({.lackedMethods = {{{"PlanTestRoom", "open"}, kPlace}}}),
              "a.scn:7: the app has no method PlanTestRoom open");
    EXPECT_NE(ErrorOf({.lackedMethods = {{{"PlanTestRoom", "close"}, kPlace}}}), "") << "it is lacking anyway";
    EXPECT_NE(ErrorOf({.extraMethods = {{{"PlanTestRoom", "open:"}, kPlace}}}), "") << "it is there anyway";
    EXPECT_NE(ErrorOf({.inheritedMethods = {{{"PlanTestRoom", "close"}, kPlace}}}), "") << "this build has none";
    EXPECT_NE(ErrorOf({.throwing = {{{"PlanTestRom", "open:"}, {"x", kPlace}}}}), "");
    EXPECT_NE(ErrorOf({.throwing = {{{"PlanTestRoom", "opens:"}, {"x", kPlace}}}}), "") << "no key has a colon";
    EXPECT_NE(ErrorOf({.shapes = {{{"PlanTestRoom", "opens:"}, {"v@:d", kPlace}}}}), "");
    EXPECT_NE(ErrorOf({.properties = {{"PlanTestPlain", "key", "q", true, kPlace}}}), "") << "its objects keep nothing";
    EXPECT_NE(ErrorOf({.properties = {{"PlanTestRoom", "shared", "q", true, kPlace}}}), "") << "a method has the name";
    EXPECT_NE(ErrorOf({.throwing = {{{"PlanTestPlain", "key"}, {"x", kPlace}}}}), "") << "its objects have no keys";
    EXPECT_NE(ErrorOf({.refusing = {{{"PlanTestRoom", "key"}, kPlace}}}), "") << "a key refuses nothing";
    EXPECT_EQ(ErrorOf({.refusing = {{{"PlanTestPlain", "hash"}, kPlace}}}),
              "a.scn:7: the app has no method PlanTestPlain hash of its own");
}

TEST(Plan, AThrowThatNothingMetIsAnErrorOfItsLine) {
    RegisterApp();
    const objc::Class room = objc_getClass("PlanTestRoom");
    Plan plan;
    plan.PlanThrow({"PlanTestRoot", "open:"}, {"met by a subclass", kPlace});
    ASSERT_NE(plan.MeetThrow(room, "open:"), nullptr);
    plan.PlanThrow({"PlanTestRoom", "shared"}, {"allowed", kPlace, true});
    EXPECT_EQ(ErrorOf([&] { plan.EndThrowing(); }), "");
    EXPECT_EQ(plan.ReasonToThrow(room, "open:"), nullptr) << "all have ended";

    plan.PlanThrow({"PlanTestRoom", "open:"}, {"first", kPlace});
    EXPECT_NE(plan.ReasonToThrow(room, "open:"), nullptr);
    EXPECT_EQ(ErrorOf([&] { plan.EndThrowing(); }), "a.scn:7: nothing met this throw of PlanTestRoom open:")
        << "to be asked about is not to be met";
    EXPECT_NE(ErrorOf([&] { plan.PlanThrow({"PlanTestRoom", "open:"}, {"second", kPlace}); }), "")
        << "another must not hide the first";
}

} // namespace
} // namespace sim::hosts
