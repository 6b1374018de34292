#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "backends/linux/HostFile.h"

namespace tavrix {

/// A file system in the tree of folders.
struct Mount {
    std::string device;
    std::string folder;  ///< host path
    std::string system;  ///< the kind of file system
    bool writable = true;
};

/// The system's table of mounted file systems, in the order in which they were mounted.
class MountTable {
  public:
    /// The table is read from a file like /proc/self/mounts, and what devices are from a folder like /sys/class/block.
    MountTable(std::string file, std::string blocks) : file_(std::move(file)), blocks_(std::move(blocks)) {}

    [[nodiscard]] std::vector<Mount> Read() const;
    /// Whether the table is another than at the last call. The system is asked for that alone: neither the table nor a
    /// disk is read.
    [[nodiscard]] bool Changed();

    /// What the system says of a device's medium: whether it can be taken out; nothing for what is no disk.
    [[nodiscard]] std::optional<bool> Removable(const std::string& device) const;
    /// The disk that a device is a part of, or the device itself: a name.
    [[nodiscard]] std::string DiskOf(const std::string& device) const;

  private:
    [[nodiscard]] std::string BlockOf(const std::string& device) const;

    std::string file_;
    std::string blocks_;
    FileDescriptor watched_;
    struct stat seen_ {};  ///< of a table that is a plain file
};

/// The mount that holds a host path; null when none does.
[[nodiscard]] const Mount* MountOf(const std::vector<Mount>& mounts, const std::string& hostPath);

/// Whether `path` is `folder` or lies below it; "" is the root of everything.
[[nodiscard]] bool IsAtOrBelow(std::string_view path, std::string_view folder);

}  // namespace tavrix
