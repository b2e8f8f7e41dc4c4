// Copies of blocks, in place of those that Foundation's library brings: these copy the new block's bytes back over the
// original, which ends badly for captures that are more than bytes. Foundation's own calls bind to these as well.

#include "objc/runtime.hpp"

#include <atomic>
#include <cstdlib>
#include <cstring>

namespace {

/// The head of every block and the head of its descriptor, by the Clang block ABI.
struct BlockDescriptor {
    unsigned long reserved;
    unsigned long size;
    void (*copy)(void *to, const void *from);
    void (*dispose)(const void *block);
};

struct BlockLayout {
    void *isa;
    std::atomic<int> flags;
    int reserved;
    void (*invoke)();
    const BlockDescriptor *descriptor;
};
static_assert(sizeof(BlockLayout) == 32);

constexpr int kCountMask = 0xFFFF; // references to a block on the heap
constexpr int kOnHeap = 1 << 24;
constexpr int kHasCopyDispose = 1 << 25;
constexpr int kGlobal = 1 << 28;

} // namespace

extern "C" {

void *_Block_copy(const void *block) {
    auto *original = static_cast<BlockLayout *>(const_cast<void *>(block));
    if (original == nullptr || (original->flags & kGlobal) != 0) {
        return original;
    }
    if ((original->flags & kOnHeap) != 0) {
        ++original->flags;
        return original;
    }
    auto *copy = static_cast<BlockLayout *>(std::malloc(original->descriptor->size));
    if (copy == nullptr) {
        return nullptr;
    }
    std::memcpy(static_cast<void *>(copy), original, original->descriptor->size);
    copy->flags = (original->flags & ~kCountMask) | kOnHeap | 1;
    if ((original->flags & kHasCopyDispose) != 0) {
        original->descriptor->copy(copy, original);
    }
    return copy;
}

void _Block_release(const void *block) {
    auto *layout = static_cast<BlockLayout *>(const_cast<void *>(block));
    if (layout == nullptr || (layout->flags & kOnHeap) == 0) {
        return;
    }
    const int left = --layout->flags;
    if ((left & kCountMask) != 0) {
        return;
    }
    if ((layout->flags & kHasCopyDispose) != 0) {
        layout->descriptor->dispose(layout);
    }
    std::free(layout);
}

} // extern "C"
