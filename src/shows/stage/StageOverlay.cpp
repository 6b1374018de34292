#include "shows/stage/StageOverlay.h"

namespace tavrix {

std::optional<std::string> OverlayText(const AppConfig& config, const std::string& path,
                                       const std::string& description) {
    if (config.ShowFilenames && config.ShowDescription) {
        return path + " <--> " + (description.empty() ? "No Description Available" : description);
    }
    if (config.ShowFilenames) return path;
    if (config.ShowDescription) return description;
    return std::nullopt;
}

}  // namespace tavrix
