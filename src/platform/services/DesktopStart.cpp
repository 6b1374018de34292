#include "platform/services/DesktopStart.h"

namespace tavrix {

std::optional<DesktopStart> DesktopStartOf(const std::string& commandLine) {
    for (const std::string_view option : {OpenOption, FullScreenOption}) {
        if (!commandLine.starts_with(option)) continue;
        if (commandLine.size() == option.size()) return DesktopStart{option, {}};
        if (commandLine[option.size()] == ' ')
            return DesktopStart{option, commandLine.substr(option.size() + 1)};
    }
    return std::nullopt;
}

}  // namespace tavrix
