#include "backends/qt/desktop/QtWakefulness.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QVariantMap>
#include <functional>
#include <utility>

namespace tavrix::qt {
namespace {

/// How one of the bus's services is asked, and how what it answered is given back.
struct Way {
    QDBusMessage ask;
    std::function<QDBusMessage(const QVariant& answer)> release;
};

QString Reason() {
    return QStringLiteral("A slide show is playing");
}

Way ScreenSaverWay() {
    const auto call = [](const char* method) {
        return QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("/org/freedesktop/ScreenSaver"),
            QStringLiteral("org.freedesktop.ScreenSaver"), QLatin1String(method));
    };
    QDBusMessage ask = call("Inhibit");
    ask << QStringLiteral("Tavrix") << Reason();
    return {ask, [call](const QVariant& cookie) {
                QDBusMessage release = call("UnInhibit");
                release << cookie;
                return release;
            }};
}

Way PortalWay() {
    constexpr uint Idle = 8;
    const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
    QDBusMessage ask = QDBusMessage::createMethodCall(
        service, QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Inhibit"), QStringLiteral("Inhibit"));
    ask << QString() << Idle << QVariantMap{{QStringLiteral("reason"), Reason()}};
    return {ask, [service](const QVariant& handle) {
                return QDBusMessage::createMethodCall(service, handle.value<QDBusObjectPath>().path(),
                                                      QStringLiteral("org.freedesktop.portal.Request"),
                                                      QStringLiteral("Close"));
            }};
}

}  // namespace

/// One service's promise, from the question to its release. It may be dropped before the answer comes.
class QtWakefulness::Wish {
  public:
    explicit Wish(Way way) : state_(std::make_shared<State>(std::move(way))) {
        // Owned by the connection to its own signal: it deletes itself once answered.
        auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(state_->way.ask));
        QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                         [state = state_](QDBusPendingCallWatcher* answered) {
                             answered->deleteLater();
                             const QDBusMessage reply = answered->reply();
                             if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
                                 return;
                             state->answer = reply.arguments().first();
                             if (!state->wanted) state->Release();
                         });
    }
    Wish(const Wish&) = delete;
    Wish& operator=(const Wish&) = delete;
    ~Wish() {
        state_->wanted = false;
        if (state_->answer.isValid()) state_->Release();
    }

  private:
    struct State {
        explicit State(Way itsWay) : way(std::move(itsWay)) {}
        void Release() const { QDBusConnection::sessionBus().send(way.release(answer)); }

        Way way;
        QVariant answer;
        bool wanted = true;
    };
    std::shared_ptr<State> state_;
};

QtWakefulness::QtWakefulness() = default;
QtWakefulness::~QtWakefulness() = default;

void QtWakefulness::Inhibit(bool on) {
    if (!on) {
        wishes_.clear();
        return;
    }
    if (!wishes_.empty() || !QDBusConnection::sessionBus().isConnected()) return;
    for (const Way& way : {ScreenSaverWay(), PortalWay()})
        wishes_.push_back(std::make_unique<Wish>(way));
}

}  // namespace tavrix::qt
