#pragma once

#include <set>
#include <string>
#include <vector>

#include "core/MainModule.h"
#include "filing/floppies/FloppyDisk.h"

namespace tavrix {

/// Deletes files on the floppy for good, one after the other, with the thumbnail files that the settings ThumbnailDelete
/// and ThumbnailExtension tell of.
class FloppyDeletion {
  public:
    FloppyDeletion(MainModule& module, const FloppyDisk& disk) : module_(module), disk_(disk) {}

    /// Throws RuntimeError 53 when the disk has no file of exactly this name, and what the file service throws.
    void Delete(const std::string& name);
    /// Whether a file has been deleted as another one's thumbnail.
    [[nodiscard]] bool HasTaken(const std::string& name) const { return taken_.contains(name); }

  private:
    /// The names of the thumbnail files of a file that is still there.
    [[nodiscard]] std::vector<std::string> ThumbnailsOf(const std::string& name) const;
    void Remove(const std::string& name);

    MainModule& module_;
    const FloppyDisk& disk_;
    std::set<std::string> taken_;
};

}  // namespace tavrix
