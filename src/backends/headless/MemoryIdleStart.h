#pragma once

#include <optional>
#include <vector>

#include "base/RuntimeError.h"
#include "platform/services/IdleStart.h"

namespace tavrix::headless {

/// An idle start that notes what it is set to.
class MemoryIdleStart final : public IdleStart {
  public:
    [[nodiscard]] std::optional<int> Minutes() override {
        Fail();
        return minutes;
    }
    void Set(std::optional<int> newMinutes) override {
        Fail();
        minutes = newMinutes;
        sets.push_back(newMinutes);
    }

    std::optional<int> minutes;
    std::vector<std::optional<int>> sets;     ///< each Set
    std::optional<ErrorNumber> failure = {};  ///< of each call from now on

  private:
    void Fail() const {
        if (failure) throw RuntimeError(*failure);
    }
};

}  // namespace tavrix::headless
