#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/headless/FaultPlan.h"
#include "platform/services/Shell.h"

namespace tavrix::headless {

/// Notes what the desktop is asked for.
class RecordingShell final : public Shell {
  public:
    explicit RecordingShell(FaultPlan& faults) : faults_(faults) {}

    void AddRecent(const std::string& path) override {
        faults_.Enter(Service::Shell, "AddRecent", path);
        recent.push_back(path);
    }
    bool Run(const std::string& commandLine) override {
        if (!faults_.EnterQuietly(Service::Shell, "Run", commandLine)) return false;
        commands.push_back(commandLine);
        return canRun;
    }
    std::string ResolveLink(const std::string& path) override {
        if (!faults_.EnterQuietly(Service::Shell, "ResolveLink", path)) return {};
        const auto found = links.find(path);
        return found == links.end() ? std::string() : found->second;
    }

    std::vector<std::string> recent;
    std::vector<std::string> commands;
    bool canRun = true;                        ///< what Run answers
    std::map<std::string, std::string> links;  ///< targets by the shortcut's path

  private:
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
