#include "app/HostPlatform.h"

#include <utility>

#include "backends/linux/Installation.h"
#include "platform/services/DesktopStart.h"

namespace tavrix {
HostPlatform::HostPlatform(std::vector<std::string> arguments, const std::string& ofProgram)
    : paths(HostPaths::FromEnvironment(ofProgram)),
      driveMap(DriveMap::SourcesOf(paths)),
      process(driveMap, paths, std::move(arguments)) {
    NoteFirstStart(paths, process, store);
}

void HostPlatform::PrefetchPicture() {
    const std::string commandLine = process.CommandLine();
    const auto desktopStart = DesktopStartOf(commandLine);
    const std::string& path = desktopStart ? desktopStart->file : commandLine;
    // A word, a switch or a floppy's path is not looked at before its time.
    if (path.starts_with("C:\\")) pictures.Expect(path);
}

}  // namespace tavrix
