#pragma once

#include <vector>

#include "backends/headless/FaultPlan.h"
#include "platform/services/Wakefulness.h"

namespace tavrix::headless {

/// Notes each wish in order.
class RecordingWakefulness final : public Wakefulness {
  public:
    explicit RecordingWakefulness(FaultPlan& faults) : faults_(faults) {}

    void Inhibit(bool on) override {
        calls.push_back(on);
        if (faults_.EnterQuietly(Service::Wakefulness, "Inhibit", on ? "true" : "false")) inhibited = on;
    }

    bool inhibited = false;
    std::vector<bool> calls;

  private:
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
