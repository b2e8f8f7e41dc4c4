#include "sha256.hpp"

#include "refusal.hpp"

#include <gnutls/crypto.h>

namespace device {

std::array<std::uint8_t, 32> Sha256(std::span<const std::uint8_t> bytes) {
    std::array<std::uint8_t, 32> digest{};
    if (gnutls_hash_fast(GNUTLS_DIG_SHA256, bytes.data(), bytes.size(), digest.data()) != 0) {
        throw Refusal("no SHA-256 at hand");
    }
    return digest;
}

} // namespace device
