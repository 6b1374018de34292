#pragma once

#include <string>

#include "base/RuntimeError.h"
#include "platform/services/Files.h"

namespace tavrix::forms {

/// Where the lists of drives, folders and files stand at first: the current folder, or the root of C: when the
/// system cannot tell it, since a window must come up even then.
[[nodiscard]] inline std::string StartFolder(Files& files) {
    std::string folder = "C:\\";
    SkipFailure([&] { folder = files.CurrentFolder(); });
    return folder;
}

}  // namespace tavrix::forms
