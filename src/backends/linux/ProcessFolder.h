#pragma once

#include <sys/types.h>

#include <string>

#include "backends/linux/HostFile.h"

namespace tavrix {

/// A folder that is of use to this process alone, among others of its kind. Its lock is held for as long as this object
/// lives, by which the next one of the kind tells it from what a killed process has left, and removes that. It is not
/// removed with this object.
class ProcessFolder {
  public:
    /// In a folder; its name is the kind, a dot, and the number of the process.
    ProcessFolder(std::string parent, const std::string& kind);

    [[nodiscard]] const std::string& Path() const { return path_; }
    /// Removes what killed processes have left of the kind, and makes the folder; `mode` less the user's mask. Throws
    /// RuntimeError.
    void Make(mode_t mode);

  private:
    void RemoveLeft() const;

    std::string parent_;
    std::string prefix_;
    std::string path_;
    FileDescriptor held_;
};

}  // namespace tavrix
