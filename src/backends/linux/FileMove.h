#pragma once

#include <string>

#include "backends/linux/DriveMap.h"
#include "backends/linux/HostFile.h"
#include "platform/services/Files.h"

namespace tavrix {

/// A file that is to get another path on this system. Where both paths are on one file system and one drive it is renamed
/// there; else it is copied whole, and removed then.
struct FileMove {
    HostLocation source;
    HostLocation target;  ///< what stands at the new path, whatever the case of its name
    std::string newPath;  ///< host path with the name as it was asked for
    TargetFile::Options options;

    /// Throws 58 when anything but the file itself stands at the new path.
    void Rename() const;
    /// Replaces a file that stands there; see Files::Move.
    bool Replace(const GoOn& goOn) const;

  private:
    [[nodiscard]] bool OntoItself() const;
    [[nodiscard]] bool OnOneDisk() const;
    /// Brings the file to a host path. False when it was given up.
    [[nodiscard]] bool Bring(const std::string& to, bool replaces, const GoOn& goOn) const;
    /// Renames on one file system; false where the two are not on one.
    [[nodiscard]] bool RenameTo(const std::string& to, bool replaces) const;
    [[nodiscard]] bool CopyTo(const std::string& to, bool replaces, const GoOn& goOn) const;
    void MakeLink(const std::string& to, const std::string& leadsTo, bool replaces) const;
    void RemoveSource() const;
};

}  // namespace tavrix
