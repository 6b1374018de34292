#pragma once

#include <filesystem>
#include <string>

#include "linux/TestFolder.h"

namespace tavrix {

/// A program of some lines for the shell, in a test's folder: its path.
inline std::string PutScript(const TestFolder& folder, const std::string& name, const std::string& lines) {
    folder.Put(name, "#!/bin/sh\n" + lines + "\n");
    std::filesystem::permissions(folder.At(name), std::filesystem::perms::owner_all);
    return folder.At(name);
}

}  // namespace tavrix
