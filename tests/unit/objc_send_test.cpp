// Typed sends: results in registers and in memory, nil, super, class methods, and the check against the method.

#include "apple/coregraphics/geometry.hpp"
#include "apple/foundation/string.hpp"
#include "objc/class_builder.hpp"

#include <gtest/gtest.h>

#include <cstring>

namespace {

/// Results of every way a calling convention has: two integer registers, one of each kind, memory.
struct Mixed {
    long integer = 0;
    double real = 0;
    friend bool operator==(Mixed, Mixed) = default;
};

enum class Direction : long { kUp = 1, kDown = 2 };
enum class Flag : unsigned { kSet = 4 };

} // namespace

template <> struct objc::Encode<Mixed> {
    static constexpr FixedString value{"{Mixed=qd}"};
};

namespace {

struct Probe : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "CorvelSendProbe";

    bool boolean(bool value) const {
        return objc::Send<"boolean:", bool>(*this, value);
    }
    char16_t unit() const {
        return objc::Send<"unit", char16_t>(*this);
    }
    long integer(long value) const {
        return objc::Send<"integer:", long>(*this, value);
    }
    float single(float value) const {
        return objc::Send<"single:", float>(*this, value);
    }
    double real(double value) const {
        return objc::Send<"real:", double>(*this, value);
    }
    ns::Range range(unsigned long location, unsigned long length) const {
        return objc::Send<"range:length:", ns::Range>(*this, location, length);
    }
    cg::Point point(double x, double y) const {
        return objc::Send<"point:y:", cg::Point>(*this, x, y);
    }
    Mixed mixed(long integer, double real) const {
        return objc::Send<"mixed:real:", Mixed>(*this, integer, real);
    }
    cg::Rect moved(cg::Rect rect, cg::Point by) const {
        return objc::Send<"moved:by:", cg::Rect>(*this, rect, by);
    }
    cg::AffineTransform transform() const {
        return objc::Send<"transform", cg::AffineTransform>(*this);
    }
    Direction turned(Direction direction, Flag flag) const {
        return objc::Send<"turned:flag:", Direction>(*this, direction, flag);
    }
    ns::Object self() const {
        return objc::Send<"selfObject", ns::Object>(*this);
    }
    long many(long a, double b, long c, double d, long e, float f, long g, long h) const {
        return objc::Send<"many:b:c:d:e:f:g:h:", long>(*this, a, b, c, d, e, f, g, h);
    }
};

bool Boolean(Probe, objc::SEL, bool value) {
    return !value;
}
char16_t Unit(Probe, objc::SEL) {
    return u'弹';
}
long Integer(Probe, objc::SEL, long value) {
    return value - 1;
}
float Single(Probe, objc::SEL, float value) {
    return value / 2;
}
double Real(Probe, objc::SEL, double value) {
    return value / 2;
}
ns::Range MakeRange(Probe, objc::SEL, unsigned long location, unsigned long length) {
    return {location, length};
}
cg::Point MakePoint(Probe, objc::SEL, double x, double y) {
    return {x, y};
}
Mixed MakeMixed(Probe, objc::SEL, long integer, double real) {
    return {integer, real};
}
cg::Rect Moved(Probe, objc::SEL, cg::Rect rect, cg::Point by) {
    return {{rect.origin.x + by.x, rect.origin.y + by.y}, rect.size};
}
cg::AffineTransform Transform(Probe, objc::SEL) {
    return {1, 2, 3, 4, 5, 6};
}
Direction Turned(Probe, objc::SEL, Direction direction, Flag flag) {
    return flag == Flag::kSet && direction == Direction::kUp ? Direction::kDown : Direction::kUp;
}
ns::Object SelfObject(Probe self, objc::SEL) {
    return self;
}
long Many(Probe, objc::SEL, long a, double b, long c, double d, long e, float f, long g, long h) {
    return a + 10 * static_cast<long>(b) + 100 * c + 1000 * static_cast<long>(d) + 10000 * e +
           100000 * static_cast<long>(f) + 1000000 * g + 10000000 * h;
}

struct DerivedProbe : Probe {
    using Probe::Probe;
    static constexpr const char *kClassName = "CorvelDerivedSendProbe";
};

long DerivedInteger(DerivedProbe self, objc::SEL, long value) {
    return 100 * objc::SendSuper<"integer:", long>(Probe{self.pointer}, value);
}
cg::Rect DerivedMoved(DerivedProbe self, objc::SEL, cg::Rect rect, cg::Point by) {
    cg::Rect moved = objc::SendSuper<"moved:by:", cg::Rect>(Probe{self.pointer}, rect, by);
    moved.size.width += 1;
    return moved;
}

class SendTest : public testing::Test {
  protected:
    ~SendTest() noexcept override = default; // what it releases does not raise

    static void SetUpTestSuite() {
        if (objc_getClass(Probe::kClassName) != nullptr) {
            return;
        }
        const objc::Class cls = objc::AllocateClass(Probe::kClassName, "NSObject");
        objc_registerClassPair(cls);
        const objc::MethodEntry methods[] = {
            objc::MethodNamed<"boolean:", &Boolean>(),
            objc::MethodNamed<"unit", &Unit>(),
            objc::MethodNamed<"integer:", &Integer>(),
            objc::MethodNamed<"single:", &Single>(),
            objc::MethodNamed<"real:", &Real>(),
            objc::MethodNamed<"range:length:", &MakeRange>(),
            objc::MethodNamed<"point:y:", &MakePoint>(),
            objc::MethodNamed<"mixed:real:", &MakeMixed>(),
            objc::MethodNamed<"moved:by:", &Moved>(),
            objc::MethodNamed<"transform", &Transform>(),
            objc::MethodNamed<"turned:flag:", &Turned>(),
            objc::MethodNamed<"selfObject", &SelfObject>(),
            objc::MethodNamed<"many:b:c:d:e:f:g:h:", &Many>(),
        };
        objc::AddMethods(cls, methods);
        const objc::Class derived = objc::AllocateClass(DerivedProbe::kClassName, Probe::kClassName);
        objc_registerClassPair(derived);
        const objc::MethodEntry overrides[] = {objc::MethodNamed<"integer:", &DerivedInteger>(),
                                               objc::MethodNamed<"moved:by:", &DerivedMoved>()};
        objc::AddMethods(derived, overrides);
    }

    objc::Ref<Probe> probe_ = ns::New<Probe>();
};

TEST_F(SendTest, ResultsInOneRegister) {
    EXPECT_TRUE(probe_->boolean(false));
    EXPECT_FALSE(probe_->boolean(true));
    EXPECT_EQ(probe_->unit(), u'弹');
    EXPECT_EQ(probe_->integer(-41), -42);
    EXPECT_EQ(probe_->single(3), 1.5F);
    EXPECT_EQ(probe_->real(5), 2.5);
    EXPECT_EQ(probe_->self(), probe_.get());
}

TEST_F(SendTest, StructuresInTwoRegisters) {
    const ns::Range range = probe_->range(7, ~0UL);
    EXPECT_EQ(range.location, 7UL);
    EXPECT_EQ(range.length, ~0UL);
    EXPECT_EQ(probe_->point(1.5, -2.5), (cg::Point{1.5, -2.5}));
    EXPECT_EQ(probe_->mixed(-3, 0.25), (Mixed{-3, 0.25}));
}

TEST_F(SendTest, StructuresInMemory) {
    EXPECT_EQ(probe_->moved({{1, 2}, {3, 4}}, {10, 20}), (cg::Rect{{11, 22}, {3, 4}}));
    EXPECT_EQ(probe_->transform(), (cg::AffineTransform{1, 2, 3, 4, 5, 6}));
}

TEST_F(SendTest, ArgumentsBeyondTheRegisters) {
    EXPECT_EQ(probe_->many(1, 2, 3, 4, 5, 6, 7, 8), 87654321);
}

TEST_F(SendTest, ScopedEnumerationsTravelAsTheirUnderlyingType) {
    EXPECT_EQ(probe_->turned(Direction::kUp, Flag::kSet), Direction::kDown);
    EXPECT_EQ(probe_->turned(Direction::kDown, Flag::kSet), Direction::kUp);
}

TEST_F(SendTest, NilAnswersZeroOfEveryKind) {
    const Probe nil;
    EXPECT_FALSE(nil.boolean(false));
    EXPECT_EQ(nil.unit(), u'\0');
    EXPECT_EQ(nil.integer(-41), 0);
    EXPECT_EQ(nil.single(3), 0.0F);
    EXPECT_EQ(nil.real(5), 0.0);
    EXPECT_EQ(nil.range(7, 8).location, 0UL);
    EXPECT_EQ(nil.range(7, 8).length, 0UL);
    EXPECT_EQ(nil.point(1, 2), (cg::Point{}));
    EXPECT_EQ(nil.mixed(-3, 0.25), Mixed{});
    EXPECT_EQ(nil.moved({{1, 2}, {3, 4}}, {10, 20}), cg::Rect{});
    EXPECT_EQ(nil.turned(Direction::kUp, Flag::kSet), Direction{});
    EXPECT_FALSE(nil.self());
    EXPECT_EQ(ns::String().UTF8String(), nullptr);
}

TEST_F(SendTest, SuperStartsAtTheSuperclass) {
    const auto derived = ns::New<DerivedProbe>();
    EXPECT_EQ(derived->integer(8), 700);
    EXPECT_EQ(derived->moved({{1, 2}, {3, 4}}, {10, 20}), (cg::Rect{{11, 22}, {4, 4}}));
    EXPECT_EQ(derived->real(5), 2.5) << "inherited";
}

struct MissingClass : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "CorvelClassThatComesLate";
};

TEST_F(SendTest, AMissingClassAnswersZeroUntilItIsRegistered) {
    EXPECT_EQ(objc::ClassOf<MissingClass>(), nullptr);
    EXPECT_FALSE(ns::New<MissingClass>());
    objc_registerClassPair(objc::AllocateClass(MissingClass::kClassName, "NSObject"));
    EXPECT_NE(objc::ClassOf<MissingClass>(), nullptr);
    EXPECT_TRUE(ns::New<MissingClass>());
}

long SharedAction(objc::Class self, objc::SEL) {
    return static_cast<long>(std::strlen(class_getName(self)));
}

TEST_F(SendTest, AClassMethodOfTheRootClassAnswersThroughEveryClass) {
    const objc::MethodEntry methods[] = {objc::MethodNamed<"corvelSharedAction", &SharedAction>()};
    objc::AddMethods(objc::MetaclassOf(objc_getClass("NSObject")), methods);
    EXPECT_EQ((objc::SendClass<ns::Object, "corvelSharedAction", long>()), 8);
    EXPECT_EQ((objc::SendClass<ns::String, "corvelSharedAction", long>()), 8);
    EXPECT_EQ((objc::SendClass<DerivedProbe, "corvelSharedAction", long>()), 22);
}

TEST(Encoding, IsComputedAsThePhoneWritesIt) {
    EXPECT_STREQ((objc::kMethodEncoding<void>.data), "v@:");
    EXPECT_STREQ((objc::kMethodEncoding<bool, ns::String, objc::SEL>.data), "B@:@:");
    EXPECT_STREQ((objc::kMethodEncoding<void, cg::Rect, double>.data), "v@:{CGRect={CGPoint=dd}{CGSize=dd}}d");
    EXPECT_STREQ((objc::kMethodEncoding<ns::Range, unsigned long>.data), "{_NSRange=QQ}@:Q");
    EXPECT_STREQ((objc::kMethodEncoding<Direction, Flag>.data), "q@:I");
    EXPECT_STREQ((objc::kMethodEncoding<const char *, objc::Class, float>.data), "r*@:#f");
    EXPECT_STREQ((objc::kMethodEncoding<void, char16_t *, const void *, ns::Object *>.data), "v@:^Sr^v^@");
}

using SendDeathTest = SendTest;

TEST_F(SendDeathTest, AWrongResultTypeStopsWithBothPrinted) {
    EXPECT_DEATH((objc::Send<"integer:", double>(probe_.get(), 1L)),
                 "send of -\\[CorvelSendProbe integer:\\] as d@:q reaches a method of CorvelSendProbe declared q@:q");
}

TEST_F(SendDeathTest, AWrongArgumentStops) {
    EXPECT_DEATH((objc::Send<"real:", double>(probe_.get(), 1L)), "real:\\] as d@:q reaches .* declared d@:d");
    EXPECT_DEATH((objc::Send<"hasPrefix:", bool>("text"_ns, 1L)), "hasPrefix:");
    EXPECT_DEATH((objc::Send<"integer:", long>(probe_.get(), 1)), "integer:\\] as q@:i reaches .* declared q@:q");
    EXPECT_DEATH((objc::Send<"integer:", unsigned long>(probe_.get(), 1L)), "integer:\\] as Q@:q");
}

TEST_F(SendDeathTest, AWrongSuperSendStops) {
    const auto derived = ns::New<DerivedProbe>();
    EXPECT_DEATH((objc::SendSuper<"integer:", long>(Probe{derived.get().pointer}, 1.0)), "integer:\\] as q@:d");
}

} // namespace
