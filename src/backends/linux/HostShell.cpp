#include "backends/linux/HostShell.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "backends/linux/HostFile.h"
#include "backends/linux/Programs.h"
#include "backends/linux/RecentDocuments.h"
#include "backends/linux/TrashCan.h"
#include "backends/shared/FileAddress.h"
#include "backends/shared/ProfileText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/services/DrivePath.h"

namespace tavrix {
namespace {

constexpr std::size_t ExplorerLength = std::string_view("explorer.exe").size();
constexpr std::size_t LongestAddress = 4096;
constexpr std::int64_t LargestLink = 1 << 20;  ///< bytes; real ones have a few thousand

/// A path with the user's folder and the system drive put in for their variables; empty when others are left.
std::string WithVariables(const std::string& path, const std::string& userFolder) {
    std::string filled;
    std::size_t at = 0;
    for (;;) {
        const std::size_t start = path.find('%', at);
        if (start == std::string::npos) return filled + path.substr(at);
        const std::size_t end = path.find('%', start + 1);
        if (end == std::string::npos) return filled + path.substr(at);
        filled += path.substr(at, start - at);
        const std::string name = path.substr(start + 1, end - start - 1);
        if (EqualIgnoringCase(name, "USERPROFILE")) {
            filled += userFolder;
        } else if (EqualIgnoringCase(name, "SystemDrive")) {
            filled += "C:";
        } else {
            return {};
        }
        at = end + 1;
    }
}

}  // namespace

HostShell::HostShell(DriveMap& drives, HostPaths paths) : drives_(drives), paths_(std::move(paths)) {}

void HostShell::AddRecent(const std::string& path) {
    if (path.empty()) return;
    SkipFailure([&] {
        recent_.push_back({FileAddressOf(drives_.Locate(path).path), MimeTypeOf(path), std::time(nullptr)});
        if (!Later) {
            WriteRecent();
        } else if (recent_.size() == 1) {
            Later([this] { WriteRecent(); });
        }
    });
}

void HostShell::WriteRecent() {
    const std::vector<RecentDocument> documents = std::exchange(recent_, {});
    if (documents.empty()) return;
    SkipFailure([&] {
        static_cast<void>(ChangeRecent([&](const std::string& list) {
            std::optional<std::string> changed = list;
            for (const RecentDocument& document : documents)
                if (changed) changed = AddRecentDocument(*changed, document);
            return changed;
        }));
    });
}

bool HostShell::ClearRecent() {
    recent_.clear();
    bool cleared = false;
    SkipFailure([&] { cleared = ChangeRecent(ClearedRecentDocuments); });
    return cleared;
}

bool HostShell::ChangeRecent(const std::function<std::optional<std::string>(const std::string&)>& change) {
    MakeFolders(paths_.data);
    const std::string file = FollowLinks(paths_.data + "/recently-used.xbel");
    const FolderLock lock(HostFolderOf(file));
    TargetFile::Options options;
    options.newMode = 0600;
    options.sync = false;  // whole or as before is enough for a list like this
    TargetFile target(file, options);
    struct stat status {};
    const bool exists = ::stat(file.c_str(), &status) == 0;
    const std::optional<std::string> list = ReadWholeFile(file);
    if (exists && !list) return false;
    const std::optional<std::string> changed = change(list.value_or(std::string()));
    if (!changed) return false;
    target.Write(*changed);
    target.Commit();
    return true;
}

bool HostShell::OpenAddress(const std::string& address) {
    // Nothing but the web: a browser would show any file of the user's, and a desktop start a program.
    if (!address.starts_with("https://") && !address.starts_with("http://")) return false;
    constexpr std::chrono::milliseconds MessengerTime(1000);
    return StartFirst({{"xdg-open", address}, {"gio", "open", address}}, MessengerTime);
}

bool HostShell::Run(const std::string& commandLine) {
    std::string target;
    const std::string line = Trim(commandLine);
    const bool explorer = EqualIgnoringCase(Left(line, ExplorerLength), "explorer.exe");
    if (explorer && line.size() > ExplorerLength) {
        try {
            const HostLocation location = drives_.Locate(Trim(line.substr(ExplorerLength)));
            if (!location.exists) return false;
            target = location.path;
        } catch (const RuntimeError&) {
            return false;
        }
    }
    if (const std::string letters = DiskLettersOf(line); !letters.empty()) {
        std::vector<std::string> devices;
        for (const char letter : letters) {
            const std::optional<HostDrive> drive = drives_.Find(letter);
            const std::string device =
                drive && drive->type == DriveType::Removable ? drives_.MountedDevice(*drive) : std::string();
            if (!device.empty()) devices.push_back(device);
        }
        // Of two disks nobody has said which; a wrong guess would cost all that is on it.
        if (devices.size() != 1) return false;
        target = devices.front();
    }
    // What opens a folder is a messenger, which soon knows whether there is a file manager.
    constexpr std::chrono::milliseconds MessengerTime(1000);
    return StartFirst(CallsFor(line, EnvironmentValue("XDG_CURRENT_DESKTOP"), paths_.executable, target),
                      explorer ? MessengerTime : std::chrono::milliseconds(0));
}

std::string HostShell::ResolveLink(const std::string& path) {
    try {
        const HostLocation location = drives_.Locate(path);
        std::error_code error;
        if (std::filesystem::is_symlink(location.path, error)) {
            const std::string target = std::filesystem::canonical(location.path, error).string();
            return error ? std::string() : drives_.ToDrivePath(target);
        }
        const bool shortcut = EndsInIgnoringCase(path, ".lnk");
        if (!location.IsFile() || location.status.st_size > LargestLink) return {};
        if (!shortcut && !EndsInIgnoringCase(path, ".desktop")) return {};
        const std::optional<std::string> content = ReadWholeFile(location.path);
        if (!content) return {};
        if (shortcut) {
            const std::optional<ShellLink> link = ParseShellLink(*content);
            return link ? TargetOf(*link, path) : std::string();
        }
        const ProfileSection entry = ReadProfileSection(*content, "Desktop Entry");
        if (entry.Read("Type") != "Link") return {};
        const std::optional<std::string> target = PathOfFileAddress(entry.Read("URL", LongestAddress));
        return target ? drives_.ToDrivePath(*target) : std::string();
    } catch (const RuntimeError&) {
        return {};
    }
}

std::string HostShell::TargetOf(const ShellLink& link, const std::string& linkPath) {
    const std::string variablePath =
        WithVariables(link.variablePath, drives_.ToDrivePath(EnvironmentValue("HOME", "/")));
    const std::array<std::string, 4> stored{link.localPath, link.devicePath, variablePath, link.networkPath};
    for (const std::string& path : stored)
        if (IsThere(path)) return path;
    if (!link.relativePath.empty()) {
        const std::string path = FolderOf(linkPath) + link.relativePath;
        if (IsThere(path)) return PartsOf(path).Text();
    }
    const auto known = std::ranges::find_if(stored, [](const std::string& path) { return !path.empty(); });
    if (known != stored.end() && !link.workingFolder.empty()) {
        const std::string path = WithBackslash(link.workingFolder) + FileNameOf(*known);
        if (IsThere(path)) return path;
    }
    return known != stored.end() ? *known : std::string();
}

bool HostShell::IsThere(const std::string& path) {
    try {
        return drives_.Locate(path).exists;
    } catch (const RuntimeError&) {
        return false;
    }
}

void HostShell::Trash(const std::string& path) {
    const HostLocation location = drives_.LocateForWriting(path);
    if (!location.exists || location.IsFolder()) throw RuntimeError(ErrorNumber::FileNotFound);
    const bool small = location.drive.letter == 'A' || location.drive.letter == 'B' || location.drive.floppy;
    TrashCan(paths_.data + "/Trash")
        .Take(location.path, small ? TrashCan::Place::Home : TrashCan::Place::Any);
    DriveMap::KeepDisk(location.drive);
}

}  // namespace tavrix
