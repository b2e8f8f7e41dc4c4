// The allocator's functions, counted. mallinfo would not do: it takes what the allocator keeps at hand for the next
// request for in use.

#include "heap.hpp"

#include <atomic>
#include <cerrno>
#include <malloc.h>

extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);
void *__libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void *memory);
}

namespace bench {
namespace {

std::atomic<std::ptrdiff_t> held = 0;

std::ptrdiff_t SizeOf(void *memory) {
    return static_cast<std::ptrdiff_t>(malloc_usable_size(memory)); // 0 for nil
}

void *Counted(void *memory) {
    held += SizeOf(memory);
    return memory;
}

} // namespace

std::ptrdiff_t HeapBytes() {
    return held;
}

} // namespace bench

extern "C" {
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the headers' are reserved names

void *malloc(std::size_t size) {
    return bench::Counted(__libc_malloc(size));
}

void *calloc(std::size_t count, std::size_t size) {
    return bench::Counted(__libc_calloc(count, size));
}

void *realloc(void *memory, std::size_t size) {
    const std::ptrdiff_t before = bench::SizeOf(memory);
    void *const moved = __libc_realloc(memory, size);
    if (moved != nullptr || size == 0) { // otherwise the old one stays
        bench::held -= before;
    }
    return bench::Counted(moved);
}

void *memalign(std::size_t alignment, std::size_t size) {
    return bench::Counted(__libc_memalign(alignment, size));
}

void *aligned_alloc(std::size_t alignment, std::size_t size) {
    return memalign(alignment, size);
}

int posix_memalign(void **memory, std::size_t alignment, std::size_t size) {
    *memory = memalign(alignment, size);
    return *memory != nullptr ? 0 : ENOMEM;
}

void free(void *memory) {
    bench::held -= bench::SizeOf(memory);
    __libc_free(memory);
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)
} // extern "C"
