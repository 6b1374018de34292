#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace tavrix {

/// A program and its arguments.
using ProgramCall = std::vector<std::string>;

/// The calls that do on this desktop what a command line of the logic asks for, the best first; empty for a
/// command line that is not known. `desktop` is XDG_CURRENT_DESKTOP; `executable` is the running program. A folder
/// behind "explorer.exe" is left to the caller: `target` is its host path, or empty. For what formats or copies a disk it
/// is the disk's device; without one there is no call, since such tools then offer the system's disk.
[[nodiscard]] std::vector<ProgramCall> CallsFor(const std::string& commandLine, const std::string& desktop,
                                                const std::string& executable, const std::string& target);

/// The drives whose disk a command line formats or copies: a letter, or all that may be meant. Empty for any other line.
[[nodiscard]] std::string DiskLettersOf(const std::string& commandLine);

/// Starts the first of the calls whose program is found (in PATH, or by a path), without waiting for its end. One that ends
/// with an error within that time is as good as none: it was the next program's to start, and found nothing to start.
/// False when none could be started.
[[nodiscard]] bool StartFirst(const std::vector<ProgramCall>& calls,
                              std::chrono::milliseconds failsWithin = std::chrono::milliseconds(0));

}  // namespace tavrix
