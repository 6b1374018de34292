#pragma once

#include <optional>
#include <string>

#include "platform/services/Registry.h"

namespace tavrix::qt {

/// Whether the running desktop (XDG_CURRENT_DESKTOP) locks the screen after its saver, as its own settings say. Nothing
/// where it does not tell.
[[nodiscard]] std::optional<bool> DesktopLockSetting();

/// The registry with the one value that says whether the screen saver asks for a password: the desktop's own setting where
/// it tells, else what is stored, which is our own switch. One that was never set is off.
class LockRegistry final : public Registry {
  public:
    static constexpr const char* Key = "Control Panel\\desktop";
    static constexpr const char* Name = "ScreenSaveUsePassword";

    explicit LockRegistry(Registry& stored) : stored_(stored) {}

    [[nodiscard]] std::optional<RegistryValue> Read(const std::string& key, const std::string& name) override;
    void Write(const std::string& key, const std::string& name, const std::string& text) override {
        stored_.Write(key, name, text);
    }

  private:
    Registry& stored_;
};

}  // namespace tavrix::qt
