#pragma once

#include <string>
#include <vector>

#include "backends/headless/FaultPlan.h"
#include "platform/services/Help.h"

namespace tavrix::headless {

class RecordingHelp final : public Help {
  public:
    struct Call {
        std::string file;
        HelpCommand command = HelpCommand::Contents;
        unsigned data = 0;

        friend bool operator==(const Call&, const Call&) = default;
    };

    explicit RecordingHelp(FaultPlan& faults) : faults_(faults) {}

    void Show(const std::string& file, HelpCommand command, unsigned data) override {
        faults_.Enter(Service::Help, "Show", file);
        calls.push_back({file, command, data});
    }

    std::vector<Call> calls;

  private:
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
