// Associated objects and weak references: what ends with an object's life.

#include "objc/association.hpp"

#include "apple/foundation/string.hpp"
#include "counted_object.hpp"

#include <gtest/gtest.h>

extern "C" objc::id objc_storeWeak(objc::id *location, objc::id value);

namespace corvel {
namespace {

using test::Counted;
using test::NewCounted;

constexpr objc::AssociationKey kText{"text"};
constexpr objc::AssociationKey kOther{"text"}; // the same name, another key

class LifeTest : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(Counted::alive, 0);
    }
    void TearDown() override {
        EXPECT_EQ(Counted::alive, 0) << "left over";
    }
};

using AssociatedObjects = LifeTest;
using WeakReferences = LifeTest;

TEST_F(AssociatedObjects, AreFoundUnderTheirOwnKeyAndOwner) {
    const auto owner = ns::New<ns::Object>();
    const auto stranger = ns::New<ns::Object>();
    objc::SetAssociated(owner.get(), kText, "value"_ns);
    EXPECT_EQ(objc::GetAssociated(owner.get(), kText), "value"_ns);
    EXPECT_FALSE(objc::GetAssociated(owner.get(), kOther));
    EXPECT_FALSE(objc::GetAssociated(stranger.get(), kText));
    EXPECT_FALSE(objc::GetAssociated(objc::Object{}, kText));
}

TEST_F(AssociatedObjects, AreReleasedWithTheirOwner) {
    auto owner = ns::New<ns::Object>();
    objc::SetAssociated(owner.get(), kText, NewCounted().get());
    objc::SetAssociated(owner.get(), kOther, NewCounted().get());
    EXPECT_EQ(Counted::alive, 2);
    owner = {};
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(AssociatedObjects, AReplacedOrDetachedValueIsReleased) {
    const auto owner = ns::New<ns::Object>();
    objc::SetAssociated(owner.get(), kText, NewCounted().get());
    const auto second = NewCounted();
    objc::SetAssociated(owner.get(), kText, second.get());
    EXPECT_EQ(Counted::alive, 1);
    EXPECT_EQ(objc::GetAssociated(owner.get(), kText), second.get());
    objc::SetAssociated(owner.get(), kText, second.get());
    EXPECT_EQ(objc::GetAssociated(owner.get(), kText), second.get()) << "set to itself";
    objc::SetAssociated(owner.get(), kText, nullptr);
    EXPECT_FALSE(objc::GetAssociated(owner.get(), kText));
    EXPECT_EQ(second->retainCount(), 1UL);
}

TEST_F(AssociatedObjects, FollowChainsOfOwners) {
    auto first = NewCounted();
    auto second = NewCounted();
    objc::SetAssociated(first.get(), kText, second.get());
    objc::SetAssociated(second.get(), kText, NewCounted().get());
    second = {};
    EXPECT_EQ(Counted::alive, 3);
    first = {};
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(AssociatedObjects, AnObjectAtAnOldAddressStartsWithNone) {
    for (int i = 0; i < 100; ++i) {
        const auto owner = ns::New<ns::Object>();
        EXPECT_FALSE(objc::GetAssociated(owner.get(), kText));
        objc::SetAssociated(owner.get(), kText, "value"_ns);
    }
}

TEST_F(AssociatedObjects, TheAssignPolicyNeitherRetainsNorReleases) {
    const auto value = NewCounted();
    {
        const auto owner = ns::New<ns::Object>();
        objc_setAssociatedObject(owner.get().pointer, &kText, value.get().pointer, OBJC_ASSOCIATION_ASSIGN);
        EXPECT_EQ(value->retainCount(), 1UL);
        EXPECT_EQ(objc::GetAssociated(owner.get(), kText), value.get());
    }
    EXPECT_EQ(value->retainCount(), 1UL);
}

TEST_F(AssociatedObjects, TheCopyPoliciesKeepACopy) {
    for (const objc_AssociationPolicy policy : {OBJC_ASSOCIATION_COPY_NONATOMIC, OBJC_ASSOCIATION_COPY}) {
        auto owner = ns::New<ns::Object>();
        const auto value = NewCounted();
        objc_setAssociatedObject(owner.get().pointer, &kText, value.get().pointer, policy);
        EXPECT_EQ(Counted::alive, 2);
        EXPECT_NE(objc_getAssociatedObject(owner.get().pointer, &kOther), value.get().pointer);
        if (policy == OBJC_ASSOCIATION_COPY_NONATOMIC) { // the atomic one hands the copy to the autorelease pool too
            EXPECT_NE(objc::GetAssociated(owner.get(), kText), value.get());
        }
        owner = {};
        EXPECT_EQ(Counted::alive, 1);
    }
}

TEST_F(AssociatedObjects, TheAtomicRetainPolicyIsReleasedTooWithItsOwner) {
    auto owner = ns::New<ns::Object>();
    objc_setAssociatedObject(owner.get().pointer, &kText, NewCounted().get().pointer, OBJC_ASSOCIATION_RETAIN);
    EXPECT_EQ(Counted::alive, 1);
    owner = {};
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(AssociatedObjects, ClassesCanOwnToo) {
    const objc::Object cls{objc::AsObject(objc_getClass("NSObject"))};
    objc::SetAssociated(cls, kText, "of a class"_ns);
    EXPECT_EQ(objc::GetAssociated(cls, kText), "of a class"_ns);
    objc::SetAssociated(cls, kText, nullptr);
    EXPECT_FALSE(objc::GetAssociated(cls, kText));
}

TEST_F(WeakReferences, ReadTheObjectWhileItLives) {
    auto object = NewCounted();
    const objc::WeakRef<Counted> weak(object.get());
    EXPECT_EQ(weak.Lock().get(), object.get());
    EXPECT_EQ(object->retainCount(), 1UL) << "what Lock held is given back";
    object = {};
    EXPECT_FALSE(weak.Lock());
}

TEST_F(WeakReferences, KeepNothingAlive) {
    const objc::WeakRef<Counted> weak(NewCounted().get());
    EXPECT_EQ(Counted::alive, 0);
    EXPECT_FALSE(weak.Lock());
}

TEST_F(WeakReferences, ALockedObjectLivesOn) {
    auto object = NewCounted();
    const objc::WeakRef<Counted> weak(object.get());
    const auto locked = weak.Lock();
    object = {};
    EXPECT_EQ(Counted::alive, 1);
    EXPECT_EQ(weak.Lock().get(), locked.get());
}

TEST_F(WeakReferences, CopiesAreClearedEachAndDestroyedOnesForgotten) {
    auto object = NewCounted();
    const objc::WeakRef<Counted> first(object.get());
    const objc::WeakRef<Counted> second(first);
    {
        const objc::WeakRef<Counted> shortLived(first);
        EXPECT_EQ(shortLived.Lock().get(), object.get());
    }
    EXPECT_EQ(second.Lock().get(), object.get());
    object = {};
    EXPECT_FALSE(first.Lock());
    EXPECT_FALSE(second.Lock());
    const objc::WeakRef<Counted> ofNothing(second);
    EXPECT_FALSE(ofNothing.Lock());
}

TEST_F(WeakReferences, StoringPointsElsewhere) {
    auto first = NewCounted();
    const auto second = NewCounted();
    objc::id location = nullptr;
    objc_initWeak(&location, first.get().pointer);
    EXPECT_EQ(objc_storeWeak(&location, second.get().pointer), second.get().pointer);
    first = {};
    EXPECT_EQ(location, second.get().pointer);
    objc_storeWeak(&location, nullptr);
    EXPECT_EQ(location, nullptr);
    objc_destroyWeak(&location);
}

struct Witness : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "CorvelWeakWitness";
};

objc::id watched = nullptr;
bool seenInDealloc = false;

void WitnessDealloc(Witness self, objc::SEL) {
    if (const objc::id found = objc_loadWeakRetained(&watched)) {
        seenInDealloc = true;
        objc::Release(found);
    }
    objc::SendSuper<"dealloc", void>(ns::Object{self.pointer});
}

TEST_F(WeakReferences, AreNilInTheObjectsOwnDeallocAlready) {
    objc_registerClassPair(objc::AllocateClass(Witness::kClassName, "NSObject"));
    const objc::MethodEntry methods[] = {objc::MethodNamed<"dealloc", &WitnessDealloc>()};
    objc::AddMethods(objc::ClassOf<Witness>(), methods);
    {
        const auto witness = ns::New<Witness>();
        objc_initWeak(&watched, witness.get().pointer);
    }
    EXPECT_FALSE(seenInDealloc);
    EXPECT_EQ(watched, nullptr);
    objc_destroyWeak(&watched);
}

} // namespace
} // namespace corvel
