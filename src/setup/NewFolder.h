#pragma once

#include <string>

#include "backends/linux/HostFile.h"

namespace tavrix::setup {

/// The hidden folder in which a package is copied, beside those that are installed, before it gets its name there. Its lock
/// is held for as long as this object lives, by which the next installation tells it from what a killed one has left.
class NewFolder {
  public:
    /// In the folder of the packages; `name` is the one that the package's folder will have.
    NewFolder(std::string packages, const std::string& name);

    [[nodiscard]] const std::string& Path() const { return path_; }
    /// Removes what killed installations of the same package have left, and makes the folder.
    void Make();

  private:
    void RemoveLeft() const;

    std::string packages_;
    std::string prefix_;  ///< of the names of such folders of this package
    std::string path_;
    FileDescriptor held_;
};

}  // namespace tavrix::setup
