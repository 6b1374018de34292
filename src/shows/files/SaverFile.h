#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

// The show that is played as the screen saver, as its settings read and write it. Neither touches the recent shows,
// LastSlideShow or ShowChanged; failures are told here.

/// Reads the file into the shared record. The former slides stay where the file is refused or its options cannot be read.
/// Whether the window is to show the record: not for a file that is no show or of another release.
[[nodiscard]] bool ReadSaverFile(MainModule& module, const std::string& path);

/// Writes the shared record over the file: all slides up to the first empty one, their paths as they are. A file with other
/// slides than these is put aside first (PutAside): it was not read whole, or is not the one that was read.
void WriteSaverFile(const MainModule& module, const std::string& path);

}  // namespace tavrix
