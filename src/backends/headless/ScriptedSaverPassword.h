#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "backends/headless/FaultPlan.h"
#include "platform/services/SaverPassword.h"

namespace tavrix::headless {

/// A user who knows the password or does not.
class ScriptedSaverPassword final : public SaverPassword {
  public:
    explicit ScriptedSaverPassword(FaultPlan& faults) : faults_(faults) {}

    bool Verify() override {
        faults_.Enter(Service::SaverPassword, "Verify");
        ++asked;
        if (whileAsking) whileAsking();
        return right;
    }
    void Change() override {
        faults_.Enter(Service::SaverPassword, "Change");
        ++changes;
    }
    bool SetRunning(bool on) override {
        told.push_back(on);
        if (!faults_.EnterQuietly(Service::SaverPassword, "SetRunning", on ? "true" : "false")) return !on;
        if (on && !canHold) return false;
        running = on;
        return true;
    }

    bool right = false;                 ///< what the user enters next
    bool canHold = true;                ///< what SetRunning answers
    std::function<void()> whileAsking;  ///< what happens while the question stands
    int asked = 0;
    int changes = 0;
    bool running = false;
    std::vector<bool> told;  ///< SetRunning, in order

  private:
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
