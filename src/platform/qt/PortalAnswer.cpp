#include "platform/qt/PortalAnswer.h"

#include <QCoreApplication>
#include <QDBusConnection>
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
    constexpr int StepInMilliseconds = 20;
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!come_ && std::chrono::steady_clock::now() < deadline)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents,
                                        StepInMilliseconds);
    return results_;
}

void PortalAnswer::Respond(uint response, const QVariantMap& results) {
    constexpr uint Success = 0;
    come_ = true;
    if (response == Success) results_ = results;
}

}  // namespace tavrix::qt
