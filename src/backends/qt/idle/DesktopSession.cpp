#include "backends/qt/idle/DesktopSession.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDBusConnection>
#include <algorithm>
#include <cstring>
#include <utility>

#include "backends/linux/HostPaths.h"

namespace tavrix::idle {
namespace {

/// A connection on which nothing is ever said: it tells when the compositor is gone. -1 where there is none.
int ConnectToCompositor() {
    const std::string name = EnvironmentValue("WAYLAND_DISPLAY");
    const std::string path = name.starts_with('/') ? name : EnvironmentValue("XDG_RUNTIME_DIR") + "/" + name;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.empty() || path.size() >= sizeof address.sun_path) return -1;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const int file = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (file < 0) return -1;
    if (::connect(file, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return file;
    ::close(file);
    return -1;
}

}  // namespace

DesktopSession::DesktopSession(std::string program, std::function<std::string()> show)
    : program_(std::move(program)),
      show_(std::move(show)),
      wayland_(!EnvironmentValue("WAYLAND_DISPLAY").empty()),
      bus_(QDBusConnection::sessionBus(), QDBusConnection::systemBus()),
      hadBus_(bus_.SessionBus().isConnected()),
      service_(bus_.SessionBus()) {
    if (!wayland_) x_.emplace();
    display_ = wayland_ ? ConnectToCompositor() : x_->Descriptor();
    service_.onActivity = [this] { activity_ = Now(); };
    service_.isActive = [this] { return SaverRuns(); };
    saver_.setProcessChannelMode(QProcess::ForwardedChannels);
    QObject::connect(&saver_, &QProcess::finished, &saver_, [this] { onSaverEnded(); });
}

std::optional<Milliseconds> DesktopSession::IdleTime() {
    std::optional<Milliseconds> idle;
    if (x_) idle = x_->IdleTime();
    if (!idle) idle = bus_.IdleTime();
    if (idle && activity_) idle = std::min(*idle, Now() - *activity_);
    return idle;
}

bool DesktopSession::Held() {
    return service_.Held() || bus_.Held() || (!wayland_ && GuardedByXScreenSaver());
}

bool DesktopSession::StartSaver() {
    const std::string show = show_();
    if (show.empty()) return false;
    saver_.start(QString::fromStdString(program_),
                 {QStringLiteral("SCRNSAVE"), QString::fromStdString(show)});
    constexpr int limitInMilliseconds = 10'000;
    return saver_.waitForStarted(limitInMilliseconds);
}

bool DesktopSession::ReadDisplay() const {
    if (x_) {
        x_->Read();
        return true;
    }
    char bytes[256];
    return ::recv(display_, bytes, sizeof bytes, 0) != 0;
}

bool DesktopSession::BusStands() const {
    return !hadBus_ || bus_.SessionBus().isConnected();
}

void DesktopSession::OfferService() {
    if (wayland_ || !GuardedByXScreenSaver()) service_.Offer();
}

Milliseconds Now() {
    return std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

}  // namespace tavrix::idle
