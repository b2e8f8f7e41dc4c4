#pragma once
// What a fuzzer is given, read as the values that it needs.

#include "runtime/utf16.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>

namespace fuzz {

/// Takes values from the front; zeros when nothing is left.
class Input {
  public:
    Input(const std::uint8_t *bytes, std::size_t size) : bytes_(bytes, size) {}

    template <class T> T Take() {
        T value{};
        const std::span<const std::uint8_t> taken = TakeBytes(sizeof(T));
        std::memcpy(&value, taken.data(), taken.size());
        return value;
    }
    std::span<const std::uint8_t> TakeBytes(std::size_t most) {
        const std::span<const std::uint8_t> taken = bytes_.first(std::min(most, bytes_.size()));
        bytes_ = bytes_.subspan(taken.size());
        return taken;
    }
    std::span<const std::uint8_t> TakeRest() {
        return TakeBytes(bytes_.size());
    }
    /// Any units, lone surrogates included; an odd byte at the end is dropped.
    std::u16string TakeUnits(std::size_t most) {
        const std::span<const std::uint8_t> taken = TakeBytes(most * 2);
        std::u16string units(taken.size() / 2, u'\0');
        std::memcpy(units.data(), taken.data(), units.size() * 2);
        return units;
    }
    /// A length in one byte, and so many units at most.
    ns::String TakeString() {
        const auto length = Take<std::uint8_t>();
        return sim::StringOf(TakeUnits(length));
    }

  private:
    std::span<const std::uint8_t> bytes_;
};

} // namespace fuzz
