#pragma once
// Blocks kept for later, as C++ callables.

#include "objc/block.hpp"

#include <functional>
#include <memory>

namespace sim {

/// A callable that copies the block and holds the copy while any copy of the callable lives; empty for nil.
template <class R, class... A> std::function<R(A...)> FunctionOf(objc::Block<R(A...)> block) {
    if (!block) {
        return {};
    }
    const std::shared_ptr<void> copy(_Block_copy(block.pointer), [](void *held) { _Block_release(held); });
    return
        [copy](A... arguments) -> R { return objc::Block<R(A...)>{static_cast<objc::id>(copy.get())}(arguments...); };
}

} // namespace sim
