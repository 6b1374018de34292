#pragma once

#include <optional>
#include <string>

#include "backends/qt/desktop/QtDesktop.h"
#include "platform/services/Registry.h"

namespace tavrix::qt {

/// The registry with the wallpaper that the desktop really shows, where it tells: the user may have chosen another one
/// since ours was set. It tells too whether the desktop wishes that what only pleases moves.
class DesktopRegistry final : public Registry {
  public:
    DesktopRegistry(Registry& stored, QtDesktop& desktop) : stored_(stored), desktop_(desktop) {}

    [[nodiscard]] std::optional<RegistryValue> Read(const std::string& key, const std::string& name) override;
    void Write(const std::string& key, const std::string& name, const std::string& text) override {
        stored_.Write(key, name, text);
    }

  private:
    Registry& stored_;
    QtDesktop& desktop_;
};

}  // namespace tavrix::qt
