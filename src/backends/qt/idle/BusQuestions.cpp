#include "backends/qt/idle/BusQuestions.h"

#include <QDBusVariant>
#include <QStringList>
#include <utility>

#include "backends/qt/bus/BusCall.h"

namespace tavrix::idle {
namespace {

using qt::BusMethod;

constexpr int LimitInMilliseconds = 2000;
constexpr const char* ScreenSaver = "org.freedesktop.ScreenSaver";
constexpr const char* Logind = "org.freedesktop.login1";

/// The first value of the answer; none for an error.
std::optional<QVariant> Ask(const QDBusConnection& bus, const BusMethod& method,
                            const QVariantList& arguments = {}) {
    const auto answer =
        qt::CallOnBus(bus, method, arguments, {.start = false, .milliseconds = LimitInMilliseconds});
    if (!answer || answer->isEmpty()) return std::nullopt;
    return answer->constFirst();
}

bool Says(const QDBusConnection& bus, const BusMethod& method, const QVariantList& arguments = {}) {
    return Ask(bus, method, arguments).value_or(false).toBool();
}

std::optional<QVariant> PropertyOf(const QDBusConnection& bus, const char* path, const char* interface,
                                   const char* name) {
    const auto value = Ask(bus, {Logind, path, "org.freedesktop.DBus.Properties", "Get"},
                           {QString::fromLatin1(interface), QString::fromLatin1(name)});
    if (!value) return std::nullopt;
    return value->value<QDBusVariant>().variant();
}

}  // namespace

BusQuestions::BusQuestions(QDBusConnection session, QDBusConnection system)
    : session_(std::move(session)), system_(std::move(system)) {}

std::optional<Milliseconds> BusQuestions::IdleTime() const {
    constexpr const char* mutter = "org.gnome.Mutter.IdleMonitor";
    auto idle = Ask(session_, {mutter, "/org/gnome/Mutter/IdleMonitor/Core", mutter, "GetIdletime"});
    if (!idle && !OwnedByUs(ScreenSaver))
        idle = Ask(session_, {ScreenSaver, "/ScreenSaver", ScreenSaver, "GetSessionIdleTime"});
    if (!idle) return std::nullopt;
    return Milliseconds(idle->toULongLong());
}

bool BusQuestions::Held() const {
    return HeldByLogind() || HeldByDesktop() || Covered();
}

bool BusQuestions::HeldByLogind() const {
    constexpr const char* manager = "/org/freedesktop/login1";
    constexpr const char* session = "/org/freedesktop/login1/session/auto";
    constexpr const char* ofSession = "org.freedesktop.login1.Session";
    const auto blocked = PropertyOf(system_, manager, "org.freedesktop.login1.Manager", "BlockInhibited");
    if (blocked && blocked->toString().split(QLatin1Char(':')).contains(QLatin1String("idle"))) return true;
    const auto locked = PropertyOf(system_, session, ofSession, "LockedHint");
    if (locked && locked->toBool()) return true;
    // Another user has the display by now.
    const auto active = PropertyOf(system_, session, ofSession, "Active");
    return active && !active->toBool();
}

/// By the managers that tell whether a program has asked them not to be idle.
bool BusQuestions::HeldByDesktop() const {
    constexpr unsigned idle = 8;
    constexpr unsigned screenSettings = 4;
    return Says(session_,
                {"org.gnome.SessionManager", "/org/gnome/SessionManager", "org.gnome.SessionManager",
                 "IsInhibited"},
                {idle}) ||
           Says(session_,
                {"org.kde.Solid.PowerManagement.PolicyAgent", "/org/kde/Solid/PowerManagement/PolicyAgent",
                 "org.kde.Solid.PowerManagement.PolicyAgent", "HasInhibition"},
                {screenSettings});
}

/// By the desktop's own saver or lock.
bool BusQuestions::Covered() const {
    if (Says(session_,
             {"org.gnome.ScreenSaver", "/org/gnome/ScreenSaver", "org.gnome.ScreenSaver", "GetActive"}))
        return true;
    return !OwnedByUs(ScreenSaver) && Says(session_, {ScreenSaver, "/ScreenSaver", ScreenSaver, "GetActive"});
}

bool BusQuestions::OwnedByUs(const char* service) const {
    const auto owner = Ask(
        session_, {"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetNameOwner"},
        {QString::fromLatin1(service)});
    return owner && owner->toString() == session_.baseService();
}

}  // namespace tavrix::idle
