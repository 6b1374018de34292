#include "core/Folders.h"

#include <limits>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/services/DrivePath.h"

namespace tavrix {
namespace {

/// A path that fits a buffer of so many characters. One that is longer is not cut, which would name another folder:
/// it is empty.
std::string Fitting(const std::string& path, std::size_t bufferSize) {
    return CharacterCount(path) < bufferSize ? Trim(path) : std::string();
}

/// A folder with a backslash at the end; nothing stays nothing, and does not become the root.
std::string Ended(const std::string& folder) {
    return folder.empty() ? folder : WithBackslash(folder);
}

/// A known folder; empty on failure and when its path is too long.
std::string Known(const MainModule& module, KnownFolder folder, std::size_t bufferSize) {
    std::string path;
    SkipFailure([&] { path = Fitting(module.platform.files.Folder(folder), bufferSize); });
    return path;
}

}  // namespace

std::string GetTempFolder(const MainModule& module) {
    const std::string folder = Known(module, KnownFolder::Temporary, 255);
    return folder.empty() ? module.AppPath : WithBackslash(folder);
}

std::string GetWindowsFolder(const MainModule& module) {
    return Ended(Known(module, KnownFolder::Windows, 128));
}

std::string GetSystemFolder(const MainModule& module) {
    return Ended(Known(module, KnownFolder::System, 255));
}

std::string GetMyDocumentsFolder(const MainModule& module) {
    std::string folder;
    SkipFailure([&] { folder = module.platform.files.Folder(KnownFolder::Documents); });
    if (!folder.empty()) return folder;
    const std::string windows = GetWindowsFolder(module);
    // Without a Windows folder only the program's own drive is left to go by.
    const bool hasDrive = windows.size() > 1 && windows[1] == ':';
    return Left(hasDrive ? windows : module.AppPath, 2) + "\\My Documents";
}

std::string GetShortPath(const MainModule& module, const std::string& folder) {
    std::string path;
    SkipFailure([&] { path = Fitting(module.platform.files.ShortPath(folder), 300); });
    return Ended(path);
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
        // Each product of two 32-bit numbers fits 64 bits; the first must fit 32 before it is multiplied again.
        constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
        const std::int64_t cluster = std::int64_t{space.sectorsPerCluster} * space.bytesPerSector;
        if (cluster <= most) bytes = cluster * space.freeClusters;
        if (bytes > most) bytes = 0;
    });
    return static_cast<std::int32_t>(bytes);
}

std::string FullPath(const MainModule& module, const std::string& path) {
    std::string normal = NormalPath(path);
    const bool drive = normal.size() > 1 && normal[1] == ':';
    const bool full = drive ? normal.size() > 2 && normal[2] == '\\' : normal.starts_with("\\\\");
    if (normal.empty() || full) return normal;
    SkipFailure([&] {
        const std::string folder = WithBackslash(module.platform.files.CurrentFolder());
        if (drive && !EqualIgnoringCase(Left(folder, 1), Left(normal, 1))) return;
        const bool ofRoot = normal.starts_with('\\');
        normal = NormalPath((ofRoot ? Left(folder, 2) : folder) + normal.substr(drive ? 2 : 0));
    });
    return normal;
}

void ChangeToFolderOf(const MainModule& module, const std::string& path) {
    module.platform.files.ChangeDrive(Left(path, 2));
    module.platform.files.ChangeFolder(FolderOf(path));
}

}  // namespace tavrix
