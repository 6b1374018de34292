#pragma once

#include <string>

namespace tavrix {

/// The folder of the user's documents, a host path. The desktop notes it in user-dirs.dirs of the configuration folder
/// as XDG_DOCUMENTS_DIR; without a usable note it is Documents in the home folder.
[[nodiscard]] std::string DocumentsFolder(const std::string& configFolder, const std::string& homeFolder);

}  // namespace tavrix
