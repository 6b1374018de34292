#pragma once

#include <string>
#include <vector>

#include "core/MainModule.h"

namespace tavrix {

/// The drives for a list to choose from: the root, two blanks, and the type in brackets. Where the system tells of none,
/// those that are usual, with one blank.
[[nodiscard]] std::vector<std::string> DriveLines(const MainModule& module);

/// How the lines of these types end.
inline constexpr const char* FixedLabel = "  [Fixed Disk]";
inline constexpr const char* RemovableLabel = "  [Removable]";
inline constexpr const char* CdRomLabel = "  [CD-ROM]";
inline constexpr const char* NetworkLabel = "  [Network]";

}  // namespace tavrix
