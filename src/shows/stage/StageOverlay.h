#pragma once

#include <optional>
#include <string>

#include "core/AppConfig.h"

namespace tavrix {

/// What a slide tells of itself in the tooltip of its image, by ShowFilenames and ShowDescription. Nothing: the tooltip
/// stays what it is.
[[nodiscard]] std::optional<std::string> OverlayText(const AppConfig& config, const std::string& path,
                                                     const std::string& description);

}  // namespace tavrix
