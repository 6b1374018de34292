#include "backends/qt/desktop/PortalAnswer.h"

#include <QDBusConnection>
#include <QTimer>
#include <QUuid>

namespace tavrix::qt {

namespace {

constexpr QLatin1String Service("org.freedesktop.portal.Desktop");
constexpr QLatin1String Interface("org.freedesktop.portal.Request");
constexpr QLatin1String Signal("Response");

}  // namespace

PortalAnswer::PortalAnswer() : token_(QLatin1String("tavrix") + QUuid::createUuid().toString(QUuid::Id128)) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    QString sender = bus.baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    path_ = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token_);
    bus.connect(Service, path_, Interface, Signal, this, SLOT(Respond(uint, QVariantMap)));
}

PortalAnswer::~PortalAnswer() {
    QDBusConnection::sessionBus().disconnect(Service, path_, Interface, Signal, this,
                                             SLOT(Respond(uint, QVariantMap)));
}

std::optional<QVariantMap> PortalAnswer::Wait(std::chrono::milliseconds limit) {
    if (!come_) {
        QTimer::singleShot(limit, &loop_, &QEventLoop::quit);
        loop_.exec(QEventLoop::ExcludeUserInputEvents);
    }
    return results_;
}

void PortalAnswer::Respond(uint response, const QVariantMap& results) {
    constexpr uint Success = 0;
    come_ = true;
    if (response == Success) results_ = results;
    loop_.quit();
}

}  // namespace tavrix::qt
