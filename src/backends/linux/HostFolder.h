#pragma once

#include <functional>
#include <string>

#include "platform/services/Files.h"

namespace tavrix {

enum class EntryKind { File, Folder, LinkedFolder };

/// Goes through the normal files or the subfolders of a folder on this system, in no order; links count as what they
/// lead to. Names come as drive paths show them, without the hidden ones. `take` gets those for which `wanted` said
/// yes; the kind of a file may cost a look at the disk, so it is asked after that.
/// Throws 76 when there is no such folder and 70 when it may not be read.
void ReadFolder(const std::string& path, EntryKind kind,
                const std::function<bool(const std::string&)>& wanted,
                const std::function<void(std::string&&)>& take);

/// The normal files and the subfolders of a folder in one pass, by the same rules; a subfolder that is a link
/// is told as one. The number is that of a file.
void ReadBoth(const std::string& path, const std::function<bool(const std::string&)>& wantedFile,
              const std::function<void(std::string&&, EntryKind, FileNumber)>& take);

}  // namespace tavrix
