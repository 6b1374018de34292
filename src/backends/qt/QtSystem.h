#pragma once

#include "platform/services/System.h"

namespace tavrix::qt {

/// The desktop as other processes see it.
class QtSystem final : public System {
  public:
    [[nodiscard]] int PlatformId() override { return 2; }
    [[nodiscard]] bool WindowExists(const std::string& title) override;
    [[nodiscard]] NumberFormat Numbers() override;
    [[nodiscard]] std::string ShortDateTime(const DateTime& moment) override;
    [[nodiscard]] MemoryFigures Memory() override;
};

}  // namespace tavrix::qt
