#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// How the prompt for a disk is worded, and how strongly it asks for attention.
struct FloppyWording {
    const char* request;  ///< the line before the file
    const char* drive;    ///< the line before the drive
    bool systemModal;
    bool wholePath = false;  ///< the file is named with its drive
};

/// For a show that the program is started with.
inline constexpr FloppyWording ShowOnFloppy{
    "Please be sure the disk that contains the file:", "...is in Floppy Drive ", true};
/// For an image.
inline constexpr FloppyWording ImageOnFloppy{
    "Insert the disk that contains the file:", "...into Floppy Drive ", false};

/// For a show that is loaded from the list of recent ones.
inline constexpr FloppyWording RecentShowOnFloppy{
    "Insert the disk that contains the file:", "...into Floppy Drive ", false, true};

/// Whether a path is on drive A: or B:.
[[nodiscard]] bool IsOnFloppy(const std::string& path);

/// The guard that a path on a floppy passes before use: the name must be long enough for a file, and where the drive
/// has no disk the user is asked for it (without a second look). False when the operation is to be stopped.
[[nodiscard]] bool PassesFloppyGuard(const MainModule& module, const std::string& path,
                                     const FloppyWording& wording);

/// Asks for the disk of a path without a look at the drive. False when the operation is to be stopped.
[[nodiscard]] bool AsksForDisk(const MainModule& module, const std::string& path,
                               const FloppyWording& wording);

}  // namespace tavrix
