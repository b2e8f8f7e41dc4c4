#pragma once
// A number that stands for everything mixed into it.

#include "uikit/color.hpp"

#include <bit>
#include <cstdint>
#include <string_view>

namespace sim {

class Fingerprint {
  public:
    void Mix(std::uint64_t word) {
        value_ = std::rotl((value_ ^ word) * 0x9E3779B97F4A7C15U, 29);
    }
    void Mix(double number) {
        Mix(std::bit_cast<std::uint64_t>(number));
    }
    void Mix(const Rgba &color) {
        for (const double part : {color.r, color.g, color.b, color.a}) {
            Mix(part);
        }
    }
    void Mix(std::u16string_view text) {
        Mix(static_cast<std::uint64_t>(text.size()));
        for (const char16_t unit : text) {
            Mix(static_cast<std::uint64_t>(unit));
        }
    }
    std::uint64_t value() const {
        return value_;
    }

  private:
    std::uint64_t value_ = 0x243F6A8885A308D3U;
};

} // namespace sim
