#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "backends/linux/PipedProgram.h"
#include "backends/qt/saver/GuardConditions.h"
#include "platform/services/Registry.h"
#include "platform/services/SaverPassword.h"

class QSocketNotifier;

namespace tavrix::qt {

class ScreenHold;

/// Guards a saver by the password of the account. While it runs, this process holds keyboard, pointer and the top of the
/// screen, and a second process, which lies in wait below with a cover over all displays, takes over should this one end
/// without the password. To be used only where MayGuard says so.
class QtSaverPassword final : public SaverPassword {
  public:
    /// How the user is asked Yes or No, or Cancel: nothing.
    using Ask = std::function<std::optional<bool>(const std::string& text)>;

    /// `registry` holds the switch that is set where the password is changed, see LockRegistry.
    QtSaverPassword(GuardPrograms programs, Registry& registry, Ask ask);
    ~QtSaverPassword() override;
    QtSaverPassword(const QtSaverPassword&) = delete;
    QtSaverPassword& operator=(const QtSaverPassword&) = delete;

    [[nodiscard]] bool MayGuard() const { return SaverMayGuard(programs_); }

    [[nodiscard]] bool Verify() override;
    /// Tells where the account's password is changed, and asks whether the saver is to ask for it.
    void Change() override;
    [[nodiscard]] bool SetRunning(bool running) override;

  private:
    [[nodiscard]] bool Begin();
    void End();
    /// Starts one; it is heard of once it says something. False when it cannot be started.
    [[nodiscard]] bool StartGuard();
    /// What the guard says; whether its cover stands.
    [[nodiscard]] bool HearGuard(std::chrono::milliseconds within);
    void GuardIsGone();
    void StartGuardAgain();

    GuardPrograms programs_;
    Registry& registry_;
    Ask ask_;
    std::unique_ptr<ScreenHold> hold_;  ///< while the saver is guarded
    std::optional<PipedProgram> guard_;
    bool guardStands_ = false;  ///< with its cover
    std::unique_ptr<QSocketNotifier> guardEnd_;
};

}  // namespace tavrix::qt
