#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// A text as it can stand in a show's file: a double quote becomes a single one, and the end of a line a blank.
[[nodiscard]] std::string StorableDescription(const std::string& text);

/// The date and the size of a file, in words. Throws RuntimeError when they cannot be found out.
[[nodiscard]] std::string FileFacts(const MainModule& module, const std::string& path);

}  // namespace tavrix
