#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

// Working files that alone hold an edit which nobody was asked about: its export failed without a word, or what it was
// made of got another name. The exit leaves them, unless one is the image on show again, which is asked about.

void KeepWorkingFile(MainModule& module, const std::string& path);
[[nodiscard]] bool IsKeptWorkingFile(const MainModule& module, const std::string& path);
/// It is the image on show, which is asked about.
void ForgetWorkingFile(MainModule& module, const std::string& path);
/// Another edit is about to be written to it: one that is kept is put aside first. Throws what PutAside throws.
void GiveWayToEdit(MainModule& module, const std::string& path);

}  // namespace tavrix
