#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/services/Files.h"

namespace tavrix {

/// What a disk knows a file by, whatever its names are. Files of several disks may have the same number.
using FileNumber = std::uint64_t;
inline constexpr FileNumber UnknownFileNumber = 0;

/// What a look tells besides, where that costs nothing. Each of these is for once, after Take.
class DetailedLook : public FolderLook {
  public:
    /// By which numbers their disk knows the files: one for each, in the same order. A link has the number of what it leads
    /// to, and all names of one file have the same.
    [[nodiscard]] virtual std::vector<FileNumber> TakeNumbers() = 0;
    /// The full paths of the subfolders that do not count in a look, and which Files::Folders lists all the same; in list
    /// order.
    [[nodiscard]] virtual std::vector<std::string> TakeUncounted() = 0;
};

}  // namespace tavrix
