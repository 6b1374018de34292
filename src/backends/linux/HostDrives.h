#pragma once

#include <string>

#include "backends/linux/DriveMap.h"
#include "platform/services/Drives.h"

namespace tavrix {

class HostDrives final : public Drives {
  public:
    explicit HostDrives(DriveMap& drives) : drives_(drives) {}

    std::string Roots() override;
    DriveType Type(const std::string& root) override;
    DiskSpace Space(const std::string& root) override;
    std::int64_t FreeBytes(const std::string& root) override;
    std::string RemovableDevice(const std::string& root) override;

  private:
    DriveMap& drives_;
};

}  // namespace tavrix
