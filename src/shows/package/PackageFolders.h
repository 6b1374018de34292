#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/MainModule.h"

namespace tavrix {

/// Whether two paths lead to one folder, by their canonical spellings, links or letters. An empty path leads to none.
[[nodiscard]] bool SameFolder(const MainModule& module, const std::string& a, const std::string& b);
/// Whether a folder lies below another, at any depth.
[[nodiscard]] bool LiesBelow(const MainModule& module, const std::string& folder, const std::string& above);

/// Why no package may be made in a folder, for the user; nothing where one may. `source` is the folder of the show and
/// `kind` the word for the package.
[[nodiscard]] std::optional<std::string> RefusedDestination(const MainModule& module,
                                                            const std::string& destination,
                                                            const std::string& source,
                                                            const std::string& kind);

/// What the user is asked about the subfolders of a destination, which are `folders`; nothing where none of them matters.
[[nodiscard]] std::optional<std::string> FolderQuestion(const std::vector<std::string>& folders,
                                                        const std::string& destination,
                                                        const std::string& kind);

/// The folders that no package may be deleted from, for the user, where a folder is one of them; nothing where it is none.
[[nodiscard]] std::optional<std::string> RefusedDeletion(const MainModule& module, const std::string& folder);

}  // namespace tavrix
