// Blocks as method implementations.

#include "apple/coregraphics/geometry.hpp"
#include "apple/foundation/string.hpp"
#include "counted_object.hpp"
#include "objc/block.hpp"
#include "objc/class_builder.hpp"

#include <gtest/gtest.h>

namespace corvel {
namespace {

using test::Counted;
using test::NewCounted;

struct Target : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "CorvelBlockMethodTarget";
};

long Unreplaced(Target, objc::SEL) {
    return -1;
}

class BlockMethods : public testing::Test {
  protected:
    ~BlockMethods() noexcept override = default; // what it releases does not raise

    static void SetUpTestSuite() {
        if (objc_getClass(Target::kClassName) == nullptr) {
            objc_registerClassPair(objc::AllocateClass(Target::kClassName, "NSObject"));
        }
    }

    /// Adds a method that calls the block.
    template <class Block> static void Add(objc::SEL selector, Block block, const char *encoding) {
        ASSERT_TRUE(
            class_addMethod(objc::ClassOf<Target>(), selector, imp_implementationWithBlock(block.pointer), encoding));
    }

    objc::Ref<Target> target_ = ns::New<Target>();
};

TEST_F(BlockMethods, TheBlockGetsTheReceiverInPlaceOfTheSelector) {
    auto block = objc::MakeBlock<ns::Object(ns::Object)>([](ns::Object self) { return self; });
    Add(objc::Selector<"corvelSelf">(), objc::Block<ns::Object(ns::Object)>(block), "@@:");
    EXPECT_EQ((objc::Send<"corvelSelf", ns::Object>(target_.get())), target_.get());
}

TEST_F(BlockMethods, IntegersOfEverySizeComeThrough) {
    auto block = objc::MakeBlock<long(ns::Object, int, unsigned, long, unsigned long, bool, char16_t)>(
        [](ns::Object, int a, unsigned b, long c, unsigned long d, bool e, char16_t f) {
            return a + static_cast<long>(b) + c + static_cast<long>(d) + (e ? 1 : 0) + f;
        });
    Add(objc::Selector<"corvelSum::::::">(),
        objc::Block<long(ns::Object, int, unsigned, long, unsigned long, bool, char16_t)>(block), "q@:iIqQBS");
    EXPECT_EQ((objc::Send<"corvelSum::::::", long>(target_.get(), -1, 4000000000U, -5000000000L, 2000000000UL, true,
                                                   char16_t{0xFFFF})),
              -1 + 4000000000L - 5000000000L + 2000000000L + 1 + 0xFFFF);
}

TEST_F(BlockMethods, SmallResultsAreWhole) {
    auto truth = objc::MakeBlock<bool(ns::Object, bool)>([](ns::Object, bool value) { return !value; });
    Add(objc::Selector<"corvelNot:">(), objc::Block<bool(ns::Object, bool)>(truth), "B@:B");
    EXPECT_TRUE((objc::Send<"corvelNot:", bool>(target_.get(), false)));
    EXPECT_FALSE((objc::Send<"corvelNot:", bool>(target_.get(), true)));
    auto negative = objc::MakeBlock<int(ns::Object)>([](ns::Object) { return -7; });
    Add(objc::Selector<"corvelNegative">(), objc::Block<int(ns::Object)>(negative), "i@:");
    EXPECT_EQ((objc::Send<"corvelNegative", int>(target_.get())), -7);
}

TEST_F(BlockMethods, FloatingPointAndPointers) {
    auto block = objc::MakeBlock<double(ns::Object, float, double, double *)>(
        [](ns::Object, float a, double b, double *sum) { return *sum = static_cast<double>(a) + b; });
    Add(objc::Selector<"corvelAdd:to:into:">(), objc::Block<double(ns::Object, float, double, double *)>(block),
        "d@:fd^d");
    double sum = 0;
    EXPECT_EQ((objc::Send<"corvelAdd:to:into:", double>(target_.get(), 1.5F, 0.25, &sum)), 1.75);
    EXPECT_EQ(sum, 1.75);
}

TEST_F(BlockMethods, StructuresInRegistersAndInMemory) {
    auto rect =
        objc::MakeBlock<cg::Rect(ns::Object, cg::Rect, cg::Point)>([](ns::Object, cg::Rect frame, cg::Point by) {
            return cg::Rect{{frame.origin.x + by.x, frame.origin.y + by.y}, frame.size};
        });
    Add(objc::Selector<"corvelMoved:by:">(), objc::Block<cg::Rect(ns::Object, cg::Rect, cg::Point)>(rect),
        "{CGRect={CGPoint=dd}{CGSize=dd}}@:{CGRect={CGPoint=dd}{CGSize=dd}}{CGPoint=dd}");
    EXPECT_EQ((objc::Send<"corvelMoved:by:", cg::Rect>(target_.get(), cg::Rect{{1, 2}, {3, 4}}, cg::Point{10, 20})),
              (cg::Rect{{11, 22}, {3, 4}}));
    auto range = objc::MakeBlock<ns::Range(ns::Object, ns::Range)>(
        [](ns::Object, ns::Range value) { return ns::Range{value.length, value.location}; });
    Add(objc::Selector<"corvelSwapped:">(), objc::Block<ns::Range(ns::Object, ns::Range)>(range),
        "{_NSRange=QQ}@:{_NSRange=QQ}");
    const auto swapped = objc::Send<"corvelSwapped:", ns::Range>(target_.get(), ns::Range{3, 8});
    EXPECT_EQ(swapped.location, 8UL);
    EXPECT_EQ(swapped.length, 3UL);
}

TEST_F(BlockMethods, ABlockWithoutParametersAnswersToo) {
    auto block = objc::MakeBlock<long()>([] { return 42L; });
    Add(objc::Selector<"corvelFortyTwo">(), objc::Block<long()>(block), "q@:");
    EXPECT_EQ((objc::Send<"corvelFortyTwo", long>(target_.get())), 42);
}

TEST_F(BlockMethods, TheBlockIsCopiedWithItsCaptures) {
    const int before = Counted::alive;
    {
        const auto captured = NewCounted();
        auto block =
            objc::MakeBlock<ns::Object(ns::Object)>([captured](ns::Object) { return ns::Object(captured.get()); });
        Add(objc::Selector<"corvelCaptured">(), objc::Block<ns::Object(ns::Object)>(block), "@@:");
    }
    EXPECT_EQ(Counted::alive, before + 1) << "a method lives as long as the process";
    EXPECT_TRUE((objc::Send<"corvelCaptured", ns::Object>(target_.get())).isKindOfClass(objc::ClassOf<Counted>()));
    --Counted::alive; // that one is accounted for
}

TEST_F(BlockMethods, AReplacedMethodAnswersByItsBlock) {
    const objc::MethodEntry methods[] = {objc::MethodNamed<"corvelReplaced", &Unreplaced>()};
    objc::AddMethods(objc::ClassOf<Target>(), methods);
    EXPECT_EQ((objc::Send<"corvelReplaced", long>(target_.get())), -1);
    auto block = objc::MakeBlock<long long(ns::Object)>([](ns::Object) { return 3000LL; });
    method_setImplementation(
        class_getInstanceMethod(objc::ClassOf<Target>(), objc::Selector<"corvelReplaced">()),
        imp_implementationWithBlock(static_cast<objc::Block<long long(ns::Object)>>(block).pointer));
    EXPECT_EQ((objc::Send<"corvelReplaced", long>(target_.get())), 3000);
}

} // namespace
} // namespace corvel
