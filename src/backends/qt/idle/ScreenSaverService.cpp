#include "backends/qt/idle/ScreenSaverService.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <algorithm>
#include <utility>

#include "backends/linux/IdleBusName.h"

namespace tavrix::idle {
namespace {

const auto Name = QStringLiteral("org.freedesktop.ScreenSaver");

}  // namespace

ScreenSaverService::ScreenSaverService(QDBusConnection bus) : bus_(std::move(bus)) {
    watcher_.setConnection(bus_);
    watcher_.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    QObject::connect(
        &watcher_, &QDBusServiceWatcher::serviceUnregistered, &watcher_, [this](const QString& program) {
            std::erase_if(holders_, [&](const auto& holder) { return holder.second == program; });
            watcher_.removeWatchedService(program);
        });
}

void ScreenSaverService::Offer() {
    if (!bus_.isConnected()) return;
    for (const auto& path : {QStringLiteral("/ScreenSaver"), QStringLiteral("/org/freedesktop/ScreenSaver")})
        bus_.registerVirtualObject(path, this);
    bus_.interface()->registerService(QLatin1String(IdleBusName));
    bus_.interface()->registerService(Name, QDBusConnectionInterface::DontQueueService,
                                      QDBusConnectionInterface::AllowReplacement);
}

bool ScreenSaverService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    if (message.interface() != Name && !message.interface().isEmpty()) return false;
    const QDBusMessage answer = AnswerTo(message);
    if (answer.type() == QDBusMessage::InvalidMessage) return false;
    connection.send(answer);
    return true;
}

QDBusMessage ScreenSaverService::AnswerTo(const QDBusMessage& message) {
    const QString member = message.member();
    const QString signature = message.signature();
    if (member == QLatin1String("Inhibit") && signature == QLatin1String("ss"))
        return message.createReply(QVariant(Hold(message.service())));
    if (member == QLatin1String("UnInhibit") && signature == QLatin1String("u")) {
        Release(message.service(), message.arguments().constFirst().toUInt());
        return message.createReply();
    }
    if (member == QLatin1String("SimulateUserActivity")) {
        onActivity();
        return message.createReply();
    }
    if (member == QLatin1String("GetActive")) return message.createReply(QVariant(isActive()));
    return {};
}

quint32 ScreenSaverService::Hold(const QString& program) {
    holders_.emplace(++lastCookie_, program);
    watcher_.addWatchedService(program);
    return lastCookie_;
}

void ScreenSaverService::Release(const QString& program, quint32 cookie) {
    const auto holder = holders_.find(cookie);
    if (holder == holders_.end() || holder->second != program) return;
    holders_.erase(holder);
    const bool more =
        std::ranges::any_of(holders_, [&](const auto& other) { return other.second == program; });
    if (!more) watcher_.removeWatchedService(program);
}

QString ScreenSaverService::introspect(const QString&) const {
    return QStringLiteral(
        "<interface name=\"org.freedesktop.ScreenSaver\">"
        "<method name=\"Inhibit\"><arg type=\"s\" direction=\"in\"/><arg type=\"s\" direction=\"in\"/>"
        "<arg type=\"u\" direction=\"out\"/></method>"
        "<method name=\"UnInhibit\"><arg type=\"u\" direction=\"in\"/></method>"
        "<method name=\"SimulateUserActivity\"/>"
        "<method name=\"GetActive\"><arg type=\"b\" direction=\"out\"/></method>"
        "</interface>");
}

}  // namespace tavrix::idle
