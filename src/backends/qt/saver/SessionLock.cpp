#include "backends/qt/saver/SessionLock.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>

namespace tavrix::qt {

void AskForSessionLock() {
    const QString service = QStringLiteral("org.freedesktop.login1");
    const QString session = qEnvironmentVariable("XDG_SESSION_ID");
    QDBusMessage ask =
        session.isEmpty() ? QDBusMessage::createMethodCall(
                                service, QStringLiteral("/org/freedesktop/login1/session/auto"),
                                QStringLiteral("org.freedesktop.login1.Session"), QStringLiteral("Lock"))
                          : QDBusMessage::createMethodCall(service, QStringLiteral("/org/freedesktop/login1"),
                                                           QStringLiteral("org.freedesktop.login1.Manager"),
                                                           QStringLiteral("LockSession"));
    if (!session.isEmpty()) ask << session;
    QDBusConnection::systemBus().asyncCall(ask);
}

}  // namespace tavrix::qt
