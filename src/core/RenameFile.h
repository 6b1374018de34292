#pragma once

#include <string>

#include "platform/services/Files.h"

namespace tavrix {

/// Gives a file another path, where nothing stands yet. The former one is deleted once the copy under the new one is whole;
/// where that fails, the copy goes again. Throws what Files::Copy and Files::Delete throw; the file is at its former path
/// then.
void RenameFile(Files& files, const std::string& from, const std::string& to);

}  // namespace tavrix
