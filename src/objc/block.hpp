#pragma once
// Blocks made from C++ lambdas. The layout is that of the Clang block ABI; no other file knows it.
// https://clang.llvm.org/docs/Block-ABI-Apple.html

#include "objc/encoding.hpp"
#include "objc/object.hpp"

#include <new>
#include <type_traits>
#include <utility>

namespace objc {

template <class Signature> struct Block;

/// Non-owning view of a block of the given signature.
template <class R, class... A> struct Block<R(A...)> : Object {
    using Object::Object;

    /// Calls the block; it must not be nil.
    R operator()(A... arguments) const {
        struct Layout {
            void *isa;
            int flags;
            int reserved;
            R (*invoke)(const void *, A...);
        };
        return reinterpret_cast<const Layout *>(pointer)->invoke(pointer, arguments...);
    }
};

template <class R, class... A> struct Encode<Block<R(A...)>> {
    static constexpr FixedString value{"@?"};
};

namespace detail {

inline constexpr int kBlockHasCopyDispose = 1 << 25;
inline constexpr int kBlockHasSignature = 1 << 30;

template <class Literal> using FunctionOf = decltype(Literal::function);

template <class Literal> struct BlockDescriptor {
    unsigned long reserved = 0;
    unsigned long size = sizeof(Literal);
    void (*copy)(Literal *to, const Literal *from) = [](Literal *to, const Literal *from) {
        new (&to->function) FunctionOf<Literal>(from->function);
    };
    void (*dispose)(Literal *literal) = [](Literal *literal) { literal->function.~FunctionOf<Literal>(); };
    const char *signature;
};

} // namespace detail

/// A block on the stack: good for the call that it is passed to, which copies it to keep it.
template <class Signature, class F> class StackBlock;

template <class R, class... A, class F> class StackBlock<R(A...), F> {
  public:
    explicit StackBlock(F function) : literal_{.function = std::move(function)} {}
    StackBlock(const StackBlock &) = delete;
    StackBlock &operator=(const StackBlock &) = delete;
    ~StackBlock() = default;

    // NOLINTNEXTLINE(google-explicit-constructor): stands wherever a block is wanted
    operator Block<R(A...)>() {
        return Block<R(A...)>{reinterpret_cast<id>(&literal_)};
    }

  private:
    struct Literal {
        void *isa = &_NSConcreteStackBlock;
        int flags = detail::kBlockHasCopyDispose | detail::kBlockHasSignature;
        int reserved = 0;
        R (*invoke)(const Literal *, A...) = [](const Literal *self, A... arguments) -> R {
            return const_cast<Literal *>(self)->function(arguments...);
        };
        const detail::BlockDescriptor<Literal> *descriptor = &kDescriptor;
        F function;
    };
    static constexpr auto kSignature = detail::Join(Encode<R>::value, FixedString{"@?"}, Encode<A>::value...);
    static constexpr detail::BlockDescriptor<Literal> kDescriptor{.signature = kSignature.data};

    Literal literal_;
};

/// A block of the given signature that calls the function and holds its captures while any copy lives.
template <class Signature, class F> StackBlock<Signature, F> MakeBlock(F function) {
    return StackBlock<Signature, F>(std::move(function));
}

} // namespace objc
