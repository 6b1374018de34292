#pragma once

#include <string>
#include <vector>

#include "platform/services/Files.h"

namespace tavrix {

/// A file of tips is text, a tip a line; blank lines are tips too. What ends the last line starts no further one.
inline constexpr std::size_t LargestTipFile = 1024 * 1024;  ///< bytes

/// The tips of a file. Throws RuntimeError 53 for an empty path, 6 for a file that is too large to be one of tips, and as
/// Files::Open does.
[[nodiscard]] std::vector<std::string> ReadTips(Files& files, const std::string& path);

}  // namespace tavrix
