#pragma once

#include <cstdint>

namespace tavrix::vector {

/// How much work a drawing may still cost. A unit is about a nanosecond; what takes memory that lasts (clips) costs
/// more. All that this module does is paid from it and stops where it is used up, so that no file can take longer
/// than the budget that its drawing starts with.
class WorkBudget {
  public:
    /// The default is as good as no limit.
    explicit WorkBudget(std::int64_t units = std::int64_t{1} << 60U) : left_(units) {}

    /// Takes units away; false when they are used up.
    bool Spend(std::int64_t units) noexcept {
        left_ = units < left_ ? left_ - units : 0;
        return left_ > 0;
    }
    [[nodiscard]] bool Exhausted() const noexcept { return left_ <= 0; }
    [[nodiscard]] std::int64_t Left() const noexcept { return left_; }

  private:
    std::int64_t left_;
};

}  // namespace tavrix::vector
