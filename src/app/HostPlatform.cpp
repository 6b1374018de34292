#include "app/HostPlatform.h"

#include <utility>

namespace tavrix {
HostPlatform::HostPlatform(std::vector<std::string> arguments, const std::string& ofProgram)
    : paths(HostPaths::FromEnvironment(ofProgram)),
      driveMap(DriveMap::SourcesOf(paths)),
      process(driveMap, paths, std::move(arguments)) {}

void HostPlatform::PrefetchPicture() {
    const std::string commandLine = process.CommandLine();
    // A word, a switch or a floppy's path is not looked at before its time.
    if (!commandLine.starts_with("C:\\")) return;
    pictures.Expect(commandLine);
}

}  // namespace tavrix
