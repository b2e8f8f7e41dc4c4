#pragma once
// Bytes in a block of memory that can grow and be handed over.

#include <cstddef>
#include <cstdlib>
#include <span>
#include <utility>

namespace corvel {

/// Owns a block made by malloc. Nothing here ends the process for want of memory.
class ByteBuffer {
  public:
    ByteBuffer() = default;
    ByteBuffer(ByteBuffer &&other) noexcept
        : bytes_(std::exchange(other.bytes_, nullptr)), length_(std::exchange(other.length_, 0)) {}
    ByteBuffer(const ByteBuffer &) = delete;
    ByteBuffer &operator=(const ByteBuffer &) = delete;
    ~ByteBuffer() {
        // NOLINTNEXTLINE(clang-analyzer-unix.Malloc): the storage within an optional is taken for a second buffer
        std::free(bytes_);
    }

    /// Makes the block that long, keeping what it holds; false (and unchanged) without memory. Not to 0 bytes.
    bool Resize(std::size_t length) {
        void *moved = std::realloc(bytes_, length);
        if (moved == nullptr) {
            return false;
        }
        bytes_ = static_cast<unsigned char *>(moved);
        length_ = length;
        return true;
    }
    /// Counts only the first bytes from now on.
    void Cut(std::size_t length) {
        length_ = length;
    }
    unsigned char *data() {
        return bytes_;
    }
    std::size_t size() const {
        return length_;
    }
    // NOLINTNEXTLINE(google-explicit-constructor): a buffer passes wherever its bytes do
    operator std::span<const unsigned char>() const {
        return {bytes_, length_};
    }
    /// The block, which the caller has to free; the buffer is empty afterwards.
    unsigned char *Release() {
        length_ = 0;
        return std::exchange(bytes_, nullptr);
    }

  private:
    unsigned char *bytes_ = nullptr;
    std::size_t length_ = 0;
};

} // namespace corvel
