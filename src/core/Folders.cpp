#include "core/Folders.h"

#include <limits>

#include "platform/base/RuntimeError.h"
#include "platform/base/Text.h"

namespace tavrix {
namespace {

/// What a known folder is called, cut to what the caller's buffer holds; empty on failure.
std::string Known(const MainModule& module, KnownFolder folder, std::size_t bufferSize) {
    std::string path;
    SkipFailure([&] { path = Left(module.platform.files.Folder(folder), bufferSize - 1); });
    return Trim(path);
}

}  // namespace

std::string GetTempFolder(const MainModule& module) {
    const std::string folder = Known(module, KnownFolder::Temporary, 255);
    return folder.empty() ? module.AppPath : WithBackslash(folder);
}

std::string GetWindowsFolder(const MainModule& module) {
    return WithBackslash(Known(module, KnownFolder::Windows, 128));
}

std::string GetSystemFolder(const MainModule& module) {
    const std::string folder = Known(module, KnownFolder::System, 255);
    return folder.empty() ? folder : WithBackslash(folder);
}

std::string GetShortPath(const MainModule& module, const std::string& folder) {
    std::string path;
    SkipFailure([&] { path = Trim(Left(module.platform.files.ShortPath(folder), 299)); });
    return path.empty() ? path : WithBackslash(path);
}

std::string FindCdRomDrive(const MainModule& module) {
    std::string found;
    SkipFailure([&] {
        constexpr std::size_t bufferSize = 150;
        constexpr std::size_t entrySize = 4;
        const std::string roots = module.platform.drives.Roots().substr(0, bufferSize);
        for (std::size_t at = 0; at + entrySize <= roots.size() && found.empty(); at += entrySize) {
            const std::string root = roots.substr(at, entrySize - 1);
            if (module.platform.drives.Type(root) == DriveType::CdRom) found = root;
        }
    });
    return found;
}

std::int32_t GetDiskFreeBytes(const MainModule& module, const std::string& root) {
    std::int64_t bytes = 0;
    SkipFailure([&] {
        const DiskSpace space = module.platform.drives.Space(root);
        // Both factors are far below 2^31, so that the product of two and of three can be checked one by one.
        const std::int64_t cluster = std::int64_t{space.sectorsPerCluster} * space.bytesPerSector;
        if (cluster > std::numeric_limits<std::int32_t>::max()) throw RuntimeError(ErrorNumber::Overflow);
        bytes = cluster * space.freeClusters;
        if (bytes > std::numeric_limits<std::int32_t>::max()) throw RuntimeError(ErrorNumber::Overflow);
    });
    return bytes > std::numeric_limits<std::int32_t>::max() ? 0 : static_cast<std::int32_t>(bytes);
}

void ChangeToFolderOf(const MainModule& module, const std::string& path) {
    module.platform.files.ChangeDrive(Left(path, 2));
    module.platform.files.ChangeFolder(FolderOf(path));
}

}  // namespace tavrix
