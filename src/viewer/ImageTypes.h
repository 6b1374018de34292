#pragma once

#include <string>

namespace tavrix {

/// Whether a file is of a kind that has to be imported.
[[nodiscard]] bool IsImportOnly(const std::string& path);
/// What a user is told who drops such a file.
[[nodiscard]] std::string ImportFirstText(const std::string& path);

}  // namespace tavrix
