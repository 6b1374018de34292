#include "app/HostPlatform.h"

#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>

#include "backends/linux/Installation.h"
#include "base/RuntimeError.h"
#include "platform/services/DesktopStart.h"

namespace tavrix {
HostPlatform::HostPlatform(std::vector<std::string> arguments, const std::string& ofProgram)
    : paths(HostPaths::FromEnvironment(ofProgram)),
      driveMap(DriveMap::SourcesOf(paths)),
      process(driveMap, paths, std::move(arguments)) {
    NoteFirstStart(paths, process, store);
    process.BeforeEnd = [this] { shell.WriteRecent(); };
}

void HostPlatform::PrefetchPicture(Size size) {
    const std::string commandLine = process.CommandLine();
    const auto desktopStart = DesktopStartOf(commandLine);
    const std::string& path = desktopStart ? desktopStart->file : commandLine;
    // A word, a switch or a floppy's path is not looked at before its time.
    if (!path.starts_with("C:\\")) return;
    constexpr std::uintmax_t SmallestLarge = 512 << 10;  // bytes
    SkipFailure([&] {
        std::error_code error;
        const std::uintmax_t bytes = std::filesystem::file_size(files.HostPathOf(path), error);
        if (!error && (bytes >= SmallestLarge) == (size == Size::Large)) pictures.Expect(path);
    });
}

}  // namespace tavrix
