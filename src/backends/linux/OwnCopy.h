#pragma once

#include <sys/stat.h>

#include <string>

namespace tavrix {

/// Gives a file a second name in place of a copy, which takes no time and no room; a file that stands at `to` is replaced.
/// For a folder where nobody writes but this process, and where it replaces files instead of writing over them. False where
/// the system refuses, where the file is protected, which a copy is not, and where there would be no room for a copy: who
/// writes next may count on that room. `status` is that of `from`.
[[nodiscard]] bool LinkAsCopy(const std::string& from, const struct stat& status, const std::string& to);

}  // namespace tavrix
