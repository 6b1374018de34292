#include "backends/qt/desktop/SessionBus.h"

#include <QDBusConnection>

namespace tavrix::qt {

std::optional<QVariantList> CallOnBus(const BusMethod& method, const QVariantList& arguments, bool start) {
    constexpr int LimitInMilliseconds = 5000;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return std::nullopt;
    QDBusMessage message =
        QDBusMessage::createMethodCall(QLatin1String(method.service), QLatin1String(method.path),
                                       QLatin1String(method.interface), QLatin1String(method.name));
    message.setArguments(arguments);
    message.setAutoStartService(start);
    const QDBusMessage answer = bus.call(message, QDBus::Block, LimitInMilliseconds);
    if (answer.type() != QDBusMessage::ReplyMessage) return std::nullopt;
    return answer.arguments();
}

}  // namespace tavrix::qt
