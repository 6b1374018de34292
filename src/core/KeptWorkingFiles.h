#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

// Working files that alone hold an edit which nobody was asked about. The exit leaves them. They are held in
// MainModule::KeptWorkingFile, one a line.

void KeepWorkingFile(MainModule& module, const std::string& path);
[[nodiscard]] bool IsKeptWorkingFile(const MainModule& module, const std::string& path);
/// It is written anew, or is the image on show, which is asked about.
void ForgetWorkingFile(MainModule& module, const std::string& path);

}  // namespace tavrix
