#pragma once

#include <optional>
#include <string>

#include "core/MainModule.h"
#include "platform/forms/Form.h"

namespace tavrix {

/// What lies in a folder, for what a dialog has to know before it goes on. A folder that is long in coming is waited for
/// under the hourglass, while messages run; nothing where the form was closed meanwhile. Throws what Files::List throws.
[[nodiscard]] std::optional<FolderContent> ContentOf(const MainModule& module, const forms::Form& form,
                                                     const std::string& folder);

}  // namespace tavrix
