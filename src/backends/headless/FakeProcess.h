#pragma once

#include <string>

#include "backends/headless/FaultPlan.h"
#include "platform/services/Process.h"

namespace tavrix::headless {

/// What the end of the process is in a test. No std::exception, so that no trap of the logic catches it on the way
/// to the harness.
struct ProcessEnded {};

class FakeProcess final : public Process {
  public:
    explicit FakeProcess(FaultPlan& faults) : faults_(faults) {}

    std::string CommandLine() override {
        faults_.Enter(Service::Process, "CommandLine");
        return commandLine;
    }
    std::string Path() override {
        faults_.Enter(Service::Process, "Path");
        return path;
    }
    [[noreturn]] void End() override {
        ended = true;
        throw ProcessEnded{};
    }

    std::string commandLine;
    std::string path = "C:\\Tavrix";
    bool ended = false;

  private:
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
