#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "backends/headless/FaultPlan.h"
#include "backends/headless/MemoryDisks.h"
#include "base/RuntimeError.h"
#include "platform/services/Shell.h"

namespace tavrix::headless {

/// Notes what the desktop is asked for, and keeps what goes to the trash.
class RecordingShell final : public Shell {
  public:
    struct Trashed {
        std::string path;  ///< as it was spelled on the disk
        std::string content;

        friend bool operator==(const Trashed&, const Trashed&) = default;
    };

    RecordingShell(MemoryDisks& disks, FaultPlan& faults) : disks_(disks), faults_(faults) {}

    void AddRecent(const std::string& path) override {
        faults_.Enter(Service::Shell, "AddRecent", path);
        recent.push_back(path);
    }
    bool ClearRecent() override {
        if (!faults_.EnterQuietly(Service::Shell, "ClearRecent") || !canClearRecent) return false;
        recent.clear();
        return true;
    }
    bool OpenAddress(const std::string& address) override {
        if (!faults_.EnterQuietly(Service::Shell, "OpenAddress", address)) return false;
        addresses.push_back(address);
        return canRun;
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
    void Trash(const std::string& path) override {
        faults_.Enter(Service::Shell, "Trash", path);
        const MemoryPlace place = disks_.LocateForWriting(PartsOf(path));
        if (!place.IsFile()) throw RuntimeError(ErrorNumber::FileNotFound);
        if (trashRefusal) throw RuntimeError(*trashRefusal);
        trash.push_back({place.path, place.node->content});
        disks_.Remove(place.path);
    }

    std::vector<std::string> recent;
    std::vector<std::string> commands;
    std::vector<std::string> addresses;  ///< that were opened
    bool canRun = true;                  ///< what Run and OpenAddress answer
    bool canClearRecent = true;
    std::map<std::string, std::string> links;  ///< targets by the shortcut's path
    std::vector<Trashed> trash;                ///< what lies in it, in order
    std::optional<ErrorNumber> trashRefusal;   ///< why the trash takes nothing

  private:
    MemoryDisks& disks_;
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
