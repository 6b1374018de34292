#pragma once

#include <sys/types.h>

#include <set>
#include <span>
#include <string>

#include "backends/linux/DriveMap.h"
#include "backends/linux/HostFile.h"
#include "platform/services/Profile.h"

namespace tavrix {

/// Sets keys in a profile at a host path: waits for other writers, reads the file again, merges and replaces it. A
/// failure changes nothing. `initial` is the content to start from where there is no file yet.
void MergeIntoProfile(const std::string& hostPath, const std::string& section,
                      std::span<const ProfileEntry> entries, TargetFile::Options options,
                      const std::string& initial = {});

/// Profiles under drive paths.
class HostProfile final : public Profile {
  public:
    explicit HostProfile(DriveMap& drives) : drives_(drives) {}

    ProfileSection Read(const std::string& section, const std::string& file) override;
    void Write(const std::string& section, std::span<const ProfileEntry> entries,
               const std::string& file) override;

  private:
    DriveMap& drives_;
    std::set<std::string> unread_;  ///< the files that were there and could not be read, in upper case
};

}  // namespace tavrix
