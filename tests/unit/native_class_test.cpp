// Classes written in C++: what their properties keep, when their state goes, what the listing says of them.

#include "apple/foundation/string.hpp"
#include "counted_object.hpp"
#include "runtime/native_class.hpp"
#include "runtime_support.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using corvel::test::Counted;
using corvel::test::NewCounted;

struct Person : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "NativeTestPerson";
};

struct Worker : Person {
    using Person::Person;
    static constexpr const char *kClassName = "NativeTestWorker";
};

struct PersonState {
    objc::Ref<ns::String> name;
    objc::Ref<ns::Object> tool;
    long age = 7;
    bool hidden = false;
    int changes = 0;

    static inline int alive = 0;
    static inline bool aliveInDealloc = false;

    PersonState() {
        ++alive;
    }
    PersonState(const PersonState &) = delete;
    PersonState &operator=(const PersonState &) = delete;
    ~PersonState() {
        --alive;
    }
};

struct WorkerState {
    double wage = 1.5;
};

ns::String NoName() {
    return "nobody"_ns;
}

void DefineClasses() {
    auto person = sim::Class<PersonState>("NativeTestPerson", "NSObject");
    person.PropertyOr<"name", &PersonState::name, &NoName>();
    person.Property<"tool", &PersonState::tool>();
    person.Property<"isHidden", &PersonState::hidden>([](PersonState &state) { ++state.changes; });
    person.Property<"age", &PersonState::age>([](Person self) { ++sim::StateOf<PersonState>(self).changes; });
    person.ReadOnly<"changes", &PersonState::changes>();
    person.Method<"older:by:">([](const PersonState &state, float factor, long years) {
        return static_cast<double>(factor) * static_cast<double>(state.age + years);
    });
    person.ClassMethod<"makeTool">([](Person) { return NewCounted(); });
    person.Dealloc([](Person self) { PersonState::aliveInDealloc = sim::StateOf<PersonState>(self).age == 8; });
    person.Adopting("NativeTestProtocol").Method<"greet">([](Person) { return 1; });
    auto worker = sim::Class<WorkerState>("NativeTestWorker", "NativeTestPerson");
    worker.Property<"wage", &WorkerState::wage>();
    sim::Class<>::Existing("NativeTestWorker").Method<"greet">([](Worker) { return 2; });
}

class NativeClass : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        if (objc::ClassOf<Worker>() == nullptr) {
            DefineClasses();
        }
    }

    ~NativeClass() noexcept override = default; // no dealloc raises here

    corvel::test::Pool pool;
    objc::Ref<Worker> worker = ns::New<Worker>();
};

TEST_F(NativeClass, PropertiesKeepWhatTheyAreGiven) {
    const auto text = ns::New<ns::MutableString>();
    text->appendString("Li"_ns);
    objc::Send<"setName:", void>(worker.get(), ns::String(text.get()));
    text->appendString("ly"_ns); // the property has a copy
    EXPECT_STREQ((objc::Send<"name", ns::String>(worker.get())).UTF8String(), "Li");
    objc::Send<"setName:", void>(worker.get(), ns::String{});
    EXPECT_STREQ((objc::Send<"name", ns::String>(worker.get())).UTF8String(), "nobody");
    {
        const auto tool = NewCounted();
        objc::Send<"setTool:", void>(worker.get(), ns::Object(tool.get()));
    }
    EXPECT_EQ(Counted::alive, 1);
    objc::Send<"setTool:", void>(worker.get(), ns::Object{});
    EXPECT_EQ(Counted::alive, 0);
    EXPECT_EQ((objc::Send<"wage", double>(worker.get())), 1.5);
}

TEST_F(NativeClass, TellsOfEachChangeAfterIt) {
    objc::Send<"setHidden:", void>(worker.get(), true);
    objc::Send<"setAge:", void>(worker.get(), 30L);
    EXPECT_TRUE((objc::Send<"isHidden", bool>(worker.get())));
    EXPECT_EQ((objc::Send<"changes", int>(worker.get())), 2);
    EXPECT_EQ((objc::Send<"older:by:", double>(worker.get(), 0.5F, 2L)), 16);
}

TEST_F(NativeClass, StateGoesWithItsObjectAfterItsOwnDealloc) {
    objc::Send<"setAge:", void>(worker.get(), 8L);
    EXPECT_EQ(PersonState::alive, 1);
    worker = nullptr;
    EXPECT_EQ(PersonState::alive, 0);
    EXPECT_TRUE(PersonState::aliveInDealloc);
}

TEST_F(NativeClass, WhatABodyOwnsComesAutoreleased) {
    {
        const corvel::test::Pool inner;
        EXPECT_TRUE((objc::SendClass<Worker, "makeTool", ns::Object>()));
        EXPECT_EQ(Counted::alive, 1);
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(NativeClass, ASubclassHasItsOwnMethod) {
    EXPECT_EQ((objc::Send<"greet", int>(worker.get())), 2);
    EXPECT_EQ((objc::Send<"greet", int>(ns::New<Person>().get())), 1);
}

TEST_F(NativeClass, IsListedAsThePhoneWritesIt) {
    std::string listed;
    for (const sim::ApiRow &row : sim::ApiRows()) {
        if (std::string_view(row.className).starts_with("NativeTest")) {
            listed +=
                std::string(row.className).substr(10) + " " + row.kind + row.selectorName + " " + row.encoding + "\n";
        }
    }
    EXPECT_EQ(listed, "Person -name @@:\nPerson -setName: v@:@\n"
                      "Person -tool @@:\nPerson -setTool: v@:@\n"
                      "Person -isHidden B@:\nPerson -setHidden: v@:B\n"
                      "Person -age q@:\nPerson -setAge: v@:q\n"
                      "Person -changes i@:\nPerson -older:by: d@:fq\nPerson +makeTool @@:\nPerson -dealloc v@:\n"
                      "Protocol -greet i@:\n"
                      "Worker -wage d@:\nWorker -setWage: v@:d\nWorker -greet i@:\n");
}

} // namespace
