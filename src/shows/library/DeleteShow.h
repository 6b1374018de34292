#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// What the Delete key does to the selected show of a list, by its full path, which is empty when none is selected: it is
/// deleted as the user agrees, and leaves the recent shows. Whether the file went.
bool DeleteShowByKey(MainModule& module, const std::string& path);

}  // namespace tavrix
