#include "backends/qt/bus/BusCall.h"

#include <QDBusMessage>

namespace tavrix::qt {

std::optional<QVariantList> CallOnBus(const QDBusConnection& bus, const BusMethod& method,
                                      const QVariantList& arguments, BusPatience patience) {
    if (!bus.isConnected()) return std::nullopt;
    QDBusMessage message =
        QDBusMessage::createMethodCall(QLatin1String(method.service), QLatin1String(method.path),
                                       QLatin1String(method.interface), QLatin1String(method.name));
    message.setArguments(arguments);
    message.setAutoStartService(patience.start);
    const QDBusMessage answer = bus.call(message, QDBus::Block, patience.milliseconds);
    if (answer.type() != QDBusMessage::ReplyMessage) return std::nullopt;
    return answer.arguments();
}

std::optional<QVariantList> CallOnBus(const BusMethod& method, const QVariantList& arguments, bool start) {
    return CallOnBus(QDBusConnection::sessionBus(), method, arguments, {.start = start});
}

}  // namespace tavrix::qt
