// Typed reads of the user defaults as the phone has them, and what is posted when they change.

#include "apple/foundation/user_defaults.hpp"

#include "apple/foundation/data.hpp"
#include "apple/foundation/date.hpp"
#include "apple/foundation/notifications.hpp"
#include "apple/foundation/number.hpp"
#include "objc/guard.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace corvel {
namespace {

class UserDefaults : public testing::Test {
  protected:
    void TearDown() override {
        defaults_.removeObjectForKey(key_);
    }

    std::string Text() const {
        const ns::String text = defaults_.stringForKey(key_);
        return text ? text.UTF8String() : "(nil)";
    }
    float Float() const {
        return objc::Send<"floatForKey:", float>(defaults_, key_);
    }
    double Double() const {
        return objc::Send<"doubleForKey:", double>(defaults_, key_);
    }
    void Store(const char *text) const {
        defaults_.setObject(ns::String::stringWithUTF8String(text), key_);
    }

    ns::UserDefaults defaults_ = ns::UserDefaults::standardUserDefaults();
    ns::String key_ = "Corvel.test"_ns;
};

TEST_F(UserDefaults, AnAbsentKeyReadsZeroOfEveryType) {
    EXPECT_FALSE(defaults_.objectForKey(key_));
    EXPECT_EQ(Text(), "(nil)");
    EXPECT_FALSE(defaults_.boolForKey(key_));
    EXPECT_EQ(defaults_.integerForKey(key_), 0);
    EXPECT_EQ(Float(), 0.0F);
    EXPECT_EQ(Double(), 0.0);
}

TEST_F(UserDefaults, NumbersReadAsText) {
    defaults_.setInteger(-42, key_);
    EXPECT_EQ(Text(), "-42");
    defaults_.setFloat(0.5F, key_);
    EXPECT_EQ(Text(), "0.5");
    defaults_.setBool(true, key_);
    EXPECT_EQ(Text(), "1");
}

TEST_F(UserDefaults, TextReadsAsNumber) {
    Store("12");
    EXPECT_EQ(defaults_.integerForKey(key_), 12);
    EXPECT_EQ(Float(), 12.0F);
    Store("0.75 and more");
    EXPECT_EQ(defaults_.integerForKey(key_), 0);
    EXPECT_EQ(Float(), 0.75F);
    EXPECT_EQ(Double(), 0.75);
    Store("-9");
    EXPECT_EQ(defaults_.integerForKey(key_), -9);
    Store("no number");
    EXPECT_EQ(defaults_.integerForKey(key_), 0);
    EXPECT_EQ(Float(), 0.0F);
}

TEST_F(UserDefaults, TextReadsAsTruth) {
    for (const char *yes : {"YES", "1", "true", "yes"}) {
        Store(yes);
        EXPECT_TRUE(defaults_.boolForKey(key_)) << yes;
    }
    for (const char *no : {"NO", "0", "false", "", "off"}) {
        Store(no);
        EXPECT_FALSE(defaults_.boolForKey(key_)) << no;
    }
}

TEST_F(UserDefaults, NumbersReadAsEachOther) {
    defaults_.setInteger(3, key_);
    EXPECT_TRUE(defaults_.boolForKey(key_));
    EXPECT_EQ(Float(), 3.0F);
    defaults_.setFloat(2.75F, key_);
    EXPECT_EQ(defaults_.integerForKey(key_), 2);
    EXPECT_TRUE(defaults_.boolForKey(key_));
    defaults_.setInteger(0, key_);
    EXPECT_FALSE(defaults_.boolForKey(key_));
}

TEST_F(UserDefaults, ContainersAndDataReadZeroWithoutRaising) {
    const std::pair<const char *, ns::Object> values[] = {
        {"array", objc::SendClass<ns::Array, "arrayWithObject:", ns::Object>(ns::Object("5"_ns))},
        {"dictionary", ns::Dictionary::dictionaryWithObject(ns::Object("5"_ns), "k"_ns)},
        {"data", ns::Data::dataWithBytes("5", 1)},
        {"date", ns::Object(ns::Date::date())},
    };
    for (const auto &[name, value] : values) {
        defaults_.setObject(value, key_);
        EXPECT_TRUE(objc::Guard([&] {
            EXPECT_EQ(Text(), "(nil)");
            EXPECT_FALSE(defaults_.boolForKey(key_));
            EXPECT_EQ(defaults_.integerForKey(key_), 0);
            EXPECT_EQ(Float(), 0.0F);
            EXPECT_EQ(Double(), 0.0);
        })) << name;
    }
}

TEST_F(UserDefaults, TextKeepsEveryUnit) {
    constexpr char16_t kUnits[] = {u'a', u'\0', 0xDE00, u'弹', 0xD83D, 0xFFFE, u'\r', 0xFEFF, 0xDC00};
    constexpr unsigned long kCount = std::size(kUnits);
    defaults_.setObject(ns::String::stringWithCharacters(kUnits, kCount), key_);
    const ns::String stored = defaults_.stringForKey(key_);
    ASSERT_EQ(stored.length(), kCount);
    for (unsigned long i = 0; i < kCount; ++i) {
        EXPECT_EQ(stored.characterAtIndex(i), kUnits[i]) << i;
    }
}

TEST_F(UserDefaults, WhatIsNoPropertyListIsRefused) {
    EXPECT_FALSE(objc::Guard([&] { defaults_.setObject(ns::Null::null(), key_); }));
    EXPECT_FALSE(defaults_.objectForKey(key_));
}

TEST_F(UserDefaults, SettingNilRemoves) {
    Store("x");
    defaults_.setObject(nullptr, key_);
    EXPECT_FALSE(defaults_.objectForKey(key_));
}

TEST_F(UserDefaults, TheRepresentationHoldsWhatWasSet) {
    Store("x");
    const ns::Dictionary all = defaults_.dictionaryRepresentation();
    EXPECT_TRUE(all.objectForKey(key_).isEqual(ns::Object("x"_ns)));
    defaults_.removeObjectForKey(key_);
    EXPECT_FALSE(defaults_.dictionaryRepresentation().objectForKey(key_));
}

TEST_F(UserDefaults, EachChangeIsPostedAtOnceButSynchronisingIsNone) {
    int posted = 0;
    const auto center = ns::NotificationCenter::defaultCenter();
    const auto observer =
        center.addObserverForName(NSUserDefaultsDidChangeNotification, nullptr, ns::OperationQueue::mainQueue(),
                                  objc::MakeBlock<void(ns::Notification)>([&](ns::Notification) { ++posted; }));
    Store("x");
    EXPECT_EQ(posted, 1);
    defaults_.setBool(true, key_);
    EXPECT_EQ(posted, 2);
    defaults_.removeObjectForKey(key_);
    EXPECT_EQ(posted, 3);
    EXPECT_TRUE(defaults_.synchronize());
    EXPECT_EQ(posted, 3);
    objc::Send<"removeObserver:", void>(center, observer);
    Store("y");
    EXPECT_EQ(posted, 3);
}

} // namespace
} // namespace corvel
