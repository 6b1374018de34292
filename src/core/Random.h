#pragma once

#include <cstdint>

namespace tavrix {

/// The one source of chance in a process: 24 bits, the same sequence in each process until somebody seeds it.
class Random {
  public:
    /// The next number, 0 <= r < 1, in steps of 2 to the power of -24.
    [[nodiscard]] float Next() {
        constexpr std::uint32_t factor = 0x43FD43FD;
        constexpr std::uint32_t summand = 0xC39EC3;
        constexpr std::uint32_t bits = 0xFFFFFF;
        constexpr float range = 16777216;
        state_ = (state_ * factor + summand) & bits;
        return static_cast<float>(state_) / range;
    }

    /// Goes on from a place in the sequence that a moment chooses, such as the seconds of the day.
    void Seed(std::uint32_t moment) {
        constexpr std::uint32_t kept = 0xFF;
        state_ = (state_ & kept) | (((moment ^ (moment >> 16U)) & 0xFFFFU) << 8U);
    }

  private:
    std::uint32_t state_ = 0x50000;
};

}  // namespace tavrix
