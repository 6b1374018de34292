#pragma once

#include <set>
#include <span>
#include <string>
#include <vector>

#include "backends/headless/FaultPlan.h"
#include "backends/headless/MemoryDisks.h"
#include "platform/services/Profile.h"

namespace tavrix::headless {

/// Profiles in files of the disks in memory; text as on a real system.
class MemoryProfile final : public Profile {
  public:
    struct Written {
        std::string file;
        std::string section;
        std::string key;
        std::string value;

        friend bool operator==(const Written&, const Written&) = default;
    };

    MemoryProfile(MemoryDisks& disks, FaultPlan& faults) : disks_(disks), faults_(faults) {}

    ProfileSection Read(const std::string& section, const std::string& file) override;
    void Write(const std::string& section, std::span<const ProfileEntry> entries,
               const std::string& file) override;

    /// The keys that were written, in order, whether or not their values changed.
    [[nodiscard]] const std::vector<Written>& Journal() const { return journal_; }

  private:
    MemoryDisks& disks_;
    FaultPlan& faults_;
    std::vector<Written> journal_;
    std::set<std::string> unread_;  ///< the files that were there and could not be read, in upper case
};

}  // namespace tavrix::headless
