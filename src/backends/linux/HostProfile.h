#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <set>
#include <span>
#include <string>

#include "backends/linux/DriveMap.h"
#include "backends/linux/HostFile.h"
#include "platform/services/Profile.h"

namespace tavrix {

/// The largest file that counts as a profile, in bytes.
inline constexpr std::size_t LargestProfile = std::size_t{1} << 20U;

/// The text of a file; nothing where there is none. Throws where one is there and cannot be read, or is larger than
/// `largest`: who takes it for nothing and writes it anew loses what is in it.
[[nodiscard]] std::optional<std::string> ReadIfThere(const std::string& hostPath,
                                                     std::size_t largest = LargestWholeFile);

/// Sets keys in a profile at a host path: waits for other writers (see FolderLock), reads the file again, merges and
/// replaces it. A failure changes nothing. `initial` is the content to start from where there is no file yet. Whether the
/// lock was had.
bool MergeIntoProfile(const std::string& hostPath, const std::string& section,
                      std::span<const ProfileEntry> entries, TargetFile::Options options,
                      const std::string& initial = {},
                      std::chrono::milliseconds patience = FolderLock::Patience);

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
    /// A program that holds the lock for ever is waited for once, and not at each write.
    std::chrono::milliseconds patience_ = FolderLock::Patience;
};

}  // namespace tavrix
