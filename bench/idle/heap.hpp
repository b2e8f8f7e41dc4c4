#pragma once
// Every byte of the process's heap.

#include <cstddef>

namespace bench {

/// What is allocated at present, in bytes, each piece as large as the allocator made it.
std::ptrdiff_t HeapBytes();

} // namespace bench
