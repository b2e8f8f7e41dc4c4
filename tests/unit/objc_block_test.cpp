// Blocks made from lambdas.

#include "objc/block.hpp"

#include "apple/coregraphics/geometry.hpp"
#include "apple/foundation/collections.hpp"
#include "apple/foundation/string.hpp"
#include "counted_object.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace corvel {
namespace {

using test::Counted;
using test::NewCounted;

/// A copy that is released with the test.
template <class Signature> class HeapBlock {
  public:
    explicit HeapBlock(objc::Block<Signature> block) : block_(static_cast<objc::id>(_Block_copy(block.pointer))) {}
    HeapBlock(const HeapBlock &) = delete;
    HeapBlock &operator=(const HeapBlock &) = delete;
    ~HeapBlock() {
        _Block_release(block_.pointer);
    }
    objc::Block<Signature> get() const {
        return block_;
    }

  private:
    objc::Block<Signature> block_;
};

TEST(Block, CallsItsFunctionWithArgumentsAndResult) {
    auto add = objc::MakeBlock<long(long, double)>([](long a, double b) { return a + static_cast<long>(b); });
    const objc::Block<long(long, double)> block = add;
    EXPECT_EQ(block(40, 2.5), 42);
}

TEST(Block, PassesStructuresBothWays) {
    auto grow = objc::MakeBlock<cg::Rect(cg::Rect, cg::Size)>([](cg::Rect rect, cg::Size by) {
        return cg::Rect{rect.origin, {rect.size.width + by.width, rect.size.height + by.height}};
    });
    const objc::Block<cg::Rect(cg::Rect, cg::Size)> block = grow;
    EXPECT_EQ(block({{1, 2}, {3, 4}}, {10, 20}), (cg::Rect{{1, 2}, {13, 24}}));
}

TEST(Block, ACopyOutlivesTheScopeOfItsOriginal) {
    int sum = 0;
    const auto make = [&sum] {
        const std::string captured(100, 'x');
        auto block =
            objc::MakeBlock<void(int)>([&sum, captured](int n) { sum += n * static_cast<int>(captured.size()); });
        return std::make_unique<HeapBlock<void(int)>>(block);
    };
    const auto copy = make();
    copy->get()(2);
    copy->get()(1);
    EXPECT_EQ(sum, 300);
}

TEST(Block, HoldsItsCapturesWhileAnyCopyLives) {
    ASSERT_EQ(Counted::alive, 0);
    const void *second = nullptr;
    {
        auto object = NewCounted();
        auto block = objc::MakeBlock<unsigned long()>([object] { return object->retainCount(); });
        object = {};
        EXPECT_EQ(Counted::alive, 1);
        const HeapBlock<unsigned long()> first(block);
        second = _Block_copy(first.get().pointer);
        EXPECT_GE(first.get()(), 1UL);
    }
    EXPECT_EQ(Counted::alive, 1) << "the second copy holds it";
    _Block_release(second);
    EXPECT_EQ(Counted::alive, 0);
}

TEST(Block, WithoutACopyNothingOutlivesTheScope) {
    {
        const auto object = NewCounted();
        auto block = objc::MakeBlock<void()>([object] {});
        const objc::Block<void()> view = block;
        view();
        EXPECT_EQ(Counted::alive, 1);
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST(Block, StateOfTheFunctionIsKeptInEachCopy) {
    auto counter = objc::MakeBlock<int()>([n = 0]() mutable { return ++n; });
    const HeapBlock<int()> copy(counter);
    EXPECT_EQ(copy.get()(), 1);
    EXPECT_EQ(copy.get()(), 2);
    const objc::Block<int()> original = counter;
    EXPECT_EQ(original(), 1);
}

objc::Ref<ns::MutableArray> Letters() {
    auto letters = ns::New<ns::MutableArray>();
    for (const ns::String letter : {"c"_ns, "a"_ns, "b"_ns}) {
        letters->addObject(letter);
    }
    return letters;
}

TEST(Block, FoundationCallsIt) {
    std::string seen;
    auto visit = objc::MakeBlock<void(ns::Object, unsigned long, bool *)>(
        [&](ns::Object object, unsigned long index, bool *stop) {
            seen += objc::As<ns::String>(object).UTF8String();
            seen += std::to_string(index);
            *stop = index == 1;
        });
    const objc::Block<void(ns::Object, unsigned long, bool *)> block = visit;
    objc::Send<"enumerateObjectsUsingBlock:", void>(Letters().get(), block);
    EXPECT_EQ(seen, "c0a1");
}

TEST(Block, FoundationTakesItsResult) {
    auto compare = objc::MakeBlock<long(ns::Object, ns::Object)>([](ns::Object left, ns::Object right) {
        return objc::Send<"compare:", long>(objc::As<ns::String>(left), objc::As<ns::String>(right));
    });
    const objc::Block<long(ns::Object, ns::Object)> block = compare;
    const auto letters = Letters();
    const auto sorted = objc::Send<"sortedArrayUsingComparator:", ns::Array>(letters.get(), block);
    ASSERT_EQ(sorted.count(), 3UL);
    EXPECT_STREQ(objc::As<ns::String>(sorted.objectAtIndex(0)).UTF8String(), "a");
    EXPECT_STREQ(objc::As<ns::String>(sorted.objectAtIndex(2)).UTF8String(), "c");
}

} // namespace
} // namespace corvel
