#pragma once

#include <optional>
#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// In what the question for a file's new name differs from command to command.
struct RenameWords {
    std::string title;    ///< of all boxes
    std::string failure;  ///< before the new name and what failed: "Unable to rename selected file to: "
    bool endingInAnyCase = false;  ///< the ending that was entered may be in another case than the file's own
};

/// Asks for a new name of a file, spelled as its list shows it, and renames it within its folder. The last four characters
/// stay: they are added where the answer ends otherwise. The new path; nothing when the user gave up, or was told why it
/// cannot be done. Nothing is ever replaced.
[[nodiscard]] std::optional<std::string> RenameFile(const MainModule& module, const std::string& path,
                                                    const RenameWords& words);

}  // namespace tavrix
