#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Whether a file is of a kind that has to be imported.
[[nodiscard]] bool IsImportOnly(const std::string& path);
/// What a user is told who drops such a file.
[[nodiscard]] std::string ImportFirstText(const std::string& path);

/// What kind of image a file is, as boxes tell it, by its name, and for GIF by the version in the file too; empty for other
/// names. Throws RuntimeError for a GIF that cannot be read.
[[nodiscard]] std::string FileTypeText(const MainModule& module, const std::string& path);

}  // namespace tavrix
