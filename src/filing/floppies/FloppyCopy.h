#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/MainModule.h"
#include "dialogs/FileTransfer.h"
#include "filing/floppies/FloppyDisk.h"

namespace tavrix {

/// In what copies from and to a floppy differ.
struct FloppyCopyWords {
    std::string replace;   ///< the question below the name of a file that is there
    std::string canceled;  ///< what is said of a copy that the wait window's button ended
};

/// Copies files from or to a floppy, with the wait window, a prompt when there is no disk, and all that is to be told.
void CopyWithFloppy(MainModule& module, const FloppyDisk& disk, std::span<const TransferItem> items,
                    const FloppyCopyWords& words);

/// The files of these names on their way from one folder to another. Both have a backslash at the end.
[[nodiscard]] std::vector<TransferItem> ItemsBetween(const std::string& from, const std::string& to,
                                                     const std::vector<std::string>& names);

}  // namespace tavrix
