#include "platform/host/HostShell.h"

#include <ctime>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/base/RuntimeError.h"
#include "platform/base/Text.h"
#include "platform/host/FileAddress.h"
#include "platform/host/HostFile.h"
#include "platform/host/Programs.h"
#include "platform/host/RecentDocuments.h"
#include "platform/services/ProfileText.h"

namespace tavrix {
namespace {

constexpr std::size_t ExplorerLength = std::string_view("explorer.exe").size();
constexpr std::size_t LongestAddress = 4096;

}  // namespace

HostShell::HostShell(DriveMap& drives, HostPaths paths) : drives_(drives), paths_(std::move(paths)) {}

void HostShell::AddRecent(const std::string& path) {
    if (path.empty()) return;
    SkipFailure([&] {
        const RecentDocument document{FileAddressOf(drives_.Locate(path).path), MimeTypeOf(path),
                                      std::time(nullptr)};
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
        if (exists && !list) return;
        const std::optional<std::string> added = AddRecentDocument(list.value_or(std::string()), document);
        if (!added) return;
        target.Write(*added);
        target.Commit();
    });
}

bool HostShell::Run(const std::string& commandLine) {
    std::string folder;
    const std::string line = Trim(commandLine);
    if (EqualIgnoringCase(Left(line, ExplorerLength), "explorer.exe") && line.size() > ExplorerLength) {
        try {
            const HostLocation location = drives_.Locate(Trim(line.substr(ExplorerLength)));
            if (!location.exists) return false;
            folder = location.path;
        } catch (const RuntimeError&) {
            return false;
        }
    }
    return StartFirst(CallsFor(line, EnvironmentValue("XDG_CURRENT_DESKTOP"), paths_.executable, folder));
}

std::string HostShell::ResolveLink(const std::string& path) {
    try {
        const HostLocation location = drives_.Locate(path);
        std::error_code error;
        if (std::filesystem::is_symlink(location.path, error)) {
            const std::string target = std::filesystem::canonical(location.path, error).string();
            return error ? std::string() : drives_.ToDrivePath(target);
        }
        if (!location.IsFile() || !EndsInIgnoringCase(path, ".desktop")) return {};
        const std::optional<std::string> content = ReadWholeFile(location.path);
        if (!content) return {};
        const ProfileSection entry = ReadProfileSection(*content, "Desktop Entry");
        if (entry.Read("Type") != "Link") return {};
        const std::optional<std::string> target = PathOfFileAddress(entry.Read("URL", LongestAddress));
        return target ? drives_.ToDrivePath(*target) : std::string();
    } catch (const RuntimeError&) {
        return {};
    }
}

}  // namespace tavrix
