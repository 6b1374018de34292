#include "backends/qt/saver/GuardConditions.h"

#include <unistd.h>

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <algorithm>
#include <array>
#include <string_view>

#include "backends/linux/HostFile.h"
#include "backends/linux/IdleBusName.h"
#include "backends/linux/Installation.h"
#include "backends/linux/Lockers.h"
#include "backends/linux/PamService.h"
#include "backends/qt/x11/X11Screen.h"

namespace tavrix::qt {
namespace {

/// Names on the session bus of those who lock, or start a saver that does.
constexpr std::array<const char*, 7> LockerServices{
    "org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver",    "org.kde.screensaver", "org.mate.ScreenSaver",
    "org.xfce.ScreenSaver",        "org.cinnamon.ScreenSaver", "org.gnome.Shell"};

bool LockerOnBus() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    const auto ownerOf = [&](const char* name) {
        return bus.interface()->serviceOwner(QLatin1String(name)).value();
    };
    const QString idleStart = ownerOf(IdleBusName);
    return std::ranges::any_of(LockerServices, [&](const char* name) {
        const QString owner = ownerOf(name);
        return !owner.isEmpty() && owner != idleStart;
    });
}

/// Whether a saver daemon has left its mark on a window of its own, below the root.
bool SaverDaemonOnScreen(xcb_connection_t* connection) {
    const xcb_atom_t mark = x11::AtomOf(connection, "_SCREENSAVER_VERSION");
    const x11::Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, x11::RootOf(connection)), nullptr));
    if (!tree) return true;
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    return std::any_of(children, children + xcb_query_tree_children_length(tree.get()),
                       [&](xcb_window_t window) {
                           const auto property = x11::PropertyOf(connection, window, mark);
                           return property && property->type != XCB_ATOM_NONE;
                       });
}

/// Whether the keyboard has keys that take a grab away from whoever has it.
bool KeysBreakGrabs(xcb_connection_t* connection) {
    const auto rules =
        x11::PropertyOf(connection, x11::RootOf(connection), x11::AtomOf(connection, "_XKB_RULES_NAMES"));
    if (!rules || rules->type == XCB_ATOM_NONE) return true;
    const std::string_view text(static_cast<const char*>(xcb_get_property_value(rules.get())),
                                static_cast<std::size_t>(xcb_get_property_value_length(rules.get())));
    return text.find("grab:") != std::string_view::npos;
}

bool ScreenIsOurs() {
    if (qgetenv("XDG_SESSION_TYPE") == "wayland" || !qgetenv("WAYLAND_DISPLAY").isEmpty()) return false;
    if (!x11::ShowsDesktop()) return false;
    xcb_connection_t* connection = x11::QtConnection();
    // A cover is over one root window.
    if (xcb_setup_roots_length(xcb_get_setup(connection)) != 1) return false;
    return !SaverDaemonOnScreen(connection) && !KeysBreakGrabs(connection);
}

}  // namespace

GuardPrograms GuardPrograms::Of(const std::string& executable) {
    const std::string folder = HelperFolderFor(HostFolderOf(executable));
    return {folder + "/tavrix-guard", folder + "/tavrix-password"};
}

bool GuardPrograms::Exist() const {
    return ::access(guard.c_str(), X_OK) == 0 && ::access(checker.c_str(), X_OK) == 0;
}

bool SaverMayGuard(const GuardPrograms& programs) {
    return programs.Exist() && !DesktopHasLocker(qgetenv("XDG_CURRENT_DESKTOP").toStdString()) &&
           ScreenIsOurs() && !StartedFromConsole() && !LockerRuns(qgetenv("DISPLAY").toStdString()) &&
           !LockerOnBus() && PamChecksPasswords("tavrix") && AccountHasPassword();
}

}  // namespace tavrix::qt
