#pragma once

#include <string>

#include "backends/headless/FaultPlan.h"
#include "backends/headless/MemoryDisks.h"
#include "platform/services/Drives.h"

namespace tavrix::headless {

class MemoryDrives final : public Drives {
  public:
    MemoryDrives(const MemoryDisks& disks, FaultPlan& faults) : disks_(disks), faults_(faults) {}

    std::string Roots() override;
    DriveType Type(const std::string& root) override;
    DiskSpace Space(const std::string& root) override;
    std::int64_t FreeBytes(const std::string& root) override;
    std::string RemovableDevice(const std::string& root) override;

  private:
    [[nodiscard]] const MemoryDisk& DiskOf(const std::string& root) const;

    const MemoryDisks& disks_;
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
