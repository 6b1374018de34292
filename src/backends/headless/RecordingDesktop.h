#pragma once

#include <optional>
#include <string>
#include <vector>

#include "backends/headless/FaultPlan.h"
#include "backends/headless/MemoryRegistry.h"
#include "platform/services/Desktop.h"

namespace tavrix::headless {

/// Shows what a test puts on the screen, and notes each wallpaper in order.
class RecordingDesktop final : public Desktop {
  public:
    RecordingDesktop(MemoryRegistry& registry, FaultPlan& faults) : registry_(registry), faults_(faults) {}

    std::optional<Surface> Capture() override {
        faults_.Enter(Service::Desktop, "Capture");
        if (!screen) return std::nullopt;
        return screen->Clone();
    }
    void SetWallpaper(const std::string& path) override {
        wallpapers.push_back(path);
        faults_.Enter(Service::Desktop, "SetWallpaper", path);
        constexpr int TextType = 1;
        registry_.Put("Control Panel\\desktop", "Wallpaper", {TextType, path});
    }

    std::optional<Surface> screen;        ///< none: the desktop lets nobody look
    std::vector<std::string> wallpapers;  ///< also those that failed

  private:
    MemoryRegistry& registry_;
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
