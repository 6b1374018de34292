#pragma once

#include <string>

#include "core/MainModule.h"
#include "shows/files/ReadShow.h"

namespace tavrix {

// The show that is played as the screen saver, as its settings read and write it. Neither touches the recent shows,
// LastSlideShow or ShowChanged; failures are told here.

/// Reads the file into the shared record. The former slides stay where the file is refused or its options cannot be read.
/// The window is to show the record, but not for a file that was Refused. What was not read whole must not be written back.
[[nodiscard]] ReadShowResult ReadSaverFile(MainModule& module, const std::string& path);

/// Writes the shared record over the file: all slides up to the first empty one, their paths as they are. A file with other
/// slides than these is put aside first (PutAside): it was not read whole, or is not the one that was read.
void WriteSaverFile(const MainModule& module, const std::string& path);

}  // namespace tavrix
