#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Keeps a file that is about to be replaced: it goes to the trash, whatever UseRecycleBin says, since nobody was asked
/// about it. Where no trash takes it, a copy named "Backup of ..." goes to the program's folder, and the file stays.
///
/// Throws RuntimeError where neither was possible, and where the file could not be written anyway; it stands then.
void PutAside(const MainModule& module, const std::string& path);

/// Whether a file or folder is there. Unlike Files::FileExists it throws RuntimeError where that cannot be found out, since
/// what is taken for absent would be lost.
[[nodiscard]] bool IsThere(Files& files, const std::string& path);

/// Whether two files hold the same bytes. Throws RuntimeError when the first cannot be read; a second one that cannot be
/// is another file, and so is what was given up.
[[nodiscard]] bool SameContent(Files& files, const std::string& first, const std::string& second,
                               const GoOn& goOn = {});

}  // namespace tavrix
