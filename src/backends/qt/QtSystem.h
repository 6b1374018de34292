#pragma once

#include <functional>
#include <utility>

#include "platform/services/System.h"

namespace tavrix::qt {

/// The desktop as other processes see it.
class QtSystem final : public System {
  public:
    /// `saverMayGuard`: whether a saver of ours is to guard the screen; asked when PlatformId is.
    explicit QtSystem(std::function<bool()> saverMayGuard) : saverMayGuard_(std::move(saverMayGuard)) {}

    [[nodiscard]] int PlatformId() override { return saverMayGuard_() ? 1 : 2; }
    [[nodiscard]] bool WindowExists(const std::string& title) override;
    [[nodiscard]] NumberFormat Numbers() override;
    [[nodiscard]] std::string ShortDateTime(const DateTime& moment) override;
    [[nodiscard]] MemoryFigures Memory() override;

  private:
    std::function<bool()> saverMayGuard_;
};

}  // namespace tavrix::qt
