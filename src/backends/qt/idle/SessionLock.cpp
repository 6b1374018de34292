#include "backends/qt/idle/SessionLock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <algorithm>

#include "base/RuntimeError.h"

namespace tavrix::idle {
namespace {

std::string DisplayName() {
    const std::string compositor = EnvironmentValue("WAYLAND_DISPLAY");
    if (!compositor.empty()) return compositor;
    // Behind the point is the number of a screen, of which a session has all.
    const std::string display = EnvironmentValue("DISPLAY", "none");
    const std::size_t colon = display.rfind(':');
    const std::size_t point = display.find('.', colon == std::string::npos ? 0 : colon);
    return display.substr(0, point);
}

}  // namespace

SessionLock::SessionLock(const HostPaths& paths) {
    std::string folder = EnvironmentValue("XDG_RUNTIME_DIR");
    if (!folder.starts_with('/')) folder = paths.data + "/tavrix";
    std::string name = DisplayName();
    std::ranges::replace(name, '/', '-');
    SkipFailure([&] { MakeFolders(folder); });
    const std::string path = folder + "/tavrix-idle" + name + ".lock";
    file_ = FileDescriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (file_) held_ = ::flock(file_.Number(), LOCK_EX | LOCK_NB) == 0;
}

}  // namespace tavrix::idle
