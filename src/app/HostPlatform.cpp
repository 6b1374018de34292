#include "app/HostPlatform.h"

#include <optional>
#include <utility>

#include "platform/base/RuntimeError.h"

namespace tavrix {
namespace {

DriveMap::Sources DriveSources(const HostPaths& paths) {
    const std::string variable = EnvironmentValue("TAVRIX_DRIVES");
    return {.drives = variable.empty() ? std::nullopt : std::optional(variable),
            .file = paths.config + "/drives",
            .program = paths.program,
            .shared = paths.shared};
}

}  // namespace

HostPlatform::HostPlatform(std::vector<std::string> arguments)
    : driveMap(DriveSources(paths)), process(driveMap, paths, std::move(arguments)) {}

void HostPlatform::PrefetchPicture() {
    const std::string commandLine = process.CommandLine();
    // A word, a switch or a floppy's path is not looked at before its time.
    if (!commandLine.starts_with("C:\\")) return;
    SkipFailure([&] { pictures.Prefetch(files.HostPathOf(commandLine)); });
}

}  // namespace tavrix
