#include "backends/linux/HostPaths.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "backends/linux/HostFile.h"
#include "backends/linux/Installation.h"
#include "backends/linux/UserFolders.h"

namespace tavrix {
namespace {

bool IsFolder(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string HomeFolder() {
    std::string home = EnvironmentValue("HOME");
    if (!home.empty()) return home;
    const passwd* user = ::getpwuid(::getuid());
    return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "/";
}

/// Relative values of these variables are to be ignored, says the base directory specification of the desktops.
std::string XdgFolder(const char* name, const char* belowHome) {
    std::string value = EnvironmentValue(name);
    if (value.starts_with('/')) return value;
    const std::string home = HomeFolder();
    return (home == "/" ? "" : home) + belowHome;
}

std::string WithoutSlash(std::string path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

}  // namespace

std::string EnvironmentValue(const char* name, const std::string& otherwise) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0' ? value : otherwise;
}

HostPaths HostPaths::FromEnvironment(const std::string& ofProgram) {
    HostPaths paths;
    std::error_code error;
    const std::string named = ofProgram.empty() ? EnvironmentValue("TAVRIX_EXECUTABLE") : ofProgram;
    paths.executable = (named.empty() ? std::filesystem::read_symlink("/proc/self/exe", error)
                                      : std::filesystem::weakly_canonical(named, error))
                           .string();
    const std::string config = WithoutSlash(XdgFolder("XDG_CONFIG_HOME", "/.config"));
    paths.config = WithoutSlash(EnvironmentValue("TAVRIX_CONFIG", config + "/tavrix"));
    paths.documents = WithoutSlash(DocumentsFolder(config, HomeFolder()));
    paths.data = WithoutSlash(XdgFolder("XDG_DATA_HOME", "/.local/share"));
    paths.temporary = WithoutSlash(EnvironmentValue("TAVRIX_TEMP"));

    const std::string beside = HostFolderOf(paths.executable);
    paths.program = WithoutSlash(EnvironmentValue("TAVRIX_HOME"));
    if (paths.program.empty()) {
        const bool own = !IsInstalled(beside) && ::access(beside.c_str(), W_OK) == 0;
        paths.program = own ? beside : paths.data + "/tavrix";
    }
    paths.shared = WithoutSlash(EnvironmentValue("TAVRIX_SHARED", SharedFolderFor(beside)));
    if (!IsFolder(paths.shared) || paths.shared == paths.program) paths.shared.clear();
    return paths;
}

}  // namespace tavrix
