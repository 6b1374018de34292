#include "backends/linux/Installation.h"

#include <unistd.h>

#include <filesystem>

#include "backends/linux/HostFile.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {
namespace {

constexpr const char* FolderNote = "EXEPath";

}  // namespace

std::string SharedFolderFor(const std::string& folder) {
    return std::filesystem::path(folder + "/" TAVRIX_SHARED_FOLDER).lexically_normal().string();
}

std::string HelperFolderFor(const std::string& folder) {
    return std::filesystem::path(folder + "/" TAVRIX_HELPER_FOLDER).lexically_normal().string();
}

bool IsInstalled(const std::string& folder) {
    if (folder == "/usr" || folder.starts_with("/usr/")) return true;
    return ::access((SharedFolderFor(folder) + "/TAVRIX.HLP").c_str(), F_OK) == 0;
}

bool NoteInstallation(Process& process, UserStore& store) {
    const std::string folder = WithBackslash(process.Path());
    store.Set(FolderNote, folder);
    return store.Get(FolderNote, {}) == folder;
}

void NoteFirstStart(const HostPaths& paths, Process& process, UserStore& store) {
    if (!IsInstalled(HostFolderOf(paths.executable)) || !store.Get(FolderNote, {}).empty()) return;
    try {
        NoteInstallation(process, store);
    } catch (const RuntimeError&) {
        // The check tells it.
    }
}

}  // namespace tavrix
