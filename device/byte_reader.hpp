#pragma once
// Bounds-checked reading of little-endian and big-endian structures.

#include "refusal.hpp"

#include <cstdint>
#include <cstring>
#include <span>
#include <string>

namespace device {

/// The value of type T at an offset; throws Refusal naming `what` when it would lie outside.
template <class T> T ReadAt(std::span<const std::uint8_t> bytes, std::uint64_t offset, const char *what) {
    if (offset > bytes.size() || bytes.size() - offset < sizeof(T)) {
        throw Refusal(std::string("truncated ") + what);
    }
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof(T));
    return value;
}

/// The same for a 32-bit big-endian value.
inline std::uint32_t ReadBigAt(std::span<const std::uint8_t> bytes, std::uint64_t offset, const char *what) {
    return __builtin_bswap32(ReadAt<std::uint32_t>(bytes, offset, what));
}

/// The zero-terminated string at an offset.
inline std::string StringAt(std::span<const std::uint8_t> bytes, std::uint64_t offset, const char *what) {
    std::string text;
    for (;; ++offset) {
        const char unit = ReadAt<char>(bytes, offset, what);
        if (unit == '\0') {
            return text;
        }
        text += unit;
    }
}

/// An unsigned LEB128 number; the offset moves past it.
inline std::uint64_t ReadUleb(std::span<const std::uint8_t> bytes, std::uint64_t &offset, const char *what) {
    std::uint64_t value = 0;
    for (unsigned shift = 0; shift < 64; shift += 7) {
        const auto byte = ReadAt<std::uint8_t>(bytes, offset++, what);
        value |= static_cast<std::uint64_t>(byte & 0x7f) << shift;
        if ((byte & 0x80) == 0) {
            return value;
        }
    }
    throw Refusal(std::string("endless number in ") + what);
}

} // namespace device
