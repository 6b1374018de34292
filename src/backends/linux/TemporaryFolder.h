#pragma once

#include <string>

#include "backends/linux/HostFile.h"

namespace tavrix {

/// The folder for temporary files of this process: private to the user (mode 0700, never reached through a link
/// that somebody else laid), and used by one live process at a time. The first process has the folder itself,
/// further ones have 2, 3, ... in it, so that none overwrites the unsaved picture of another. What a process left
/// behind waits for the next one that gets its folder.
class TemporaryFolder {
  public:
    /// `wanted` is made where it is missing; where it is there and others may enter it, tavrix-<user id> in it is taken.
    /// It may be empty: then it is tavrix-<user id> below TMPDIR or /tmp, and where somebody else has taken that name,
    /// tavrix below XDG_RUNTIME_DIR.
    explicit TemporaryFolder(const std::string& wanted);

    /// The host path, without a slash at the end; empty when no folder can be had.
    [[nodiscard]] const std::string& Path() const { return path_; }

  private:
    std::string path_;
    FileDescriptor lock_;  ///< held as long as the folder is in use
};

}  // namespace tavrix
