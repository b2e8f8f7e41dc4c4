#pragma once
// SHA-256, from the library that GNUstep brings along.

#include <array>
#include <cstdint>
#include <span>

namespace device {

/// The SHA-256 digest of the bytes.
std::array<std::uint8_t, 32> Sha256(std::span<const std::uint8_t> bytes);

} // namespace device
