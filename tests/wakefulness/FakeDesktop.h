#pragma once

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QVariantMap>
#include <string>
#include <utility>
#include <vector>

namespace tavrix {

/// The services that keep a screen lit, as far as they are asked; notes each call as text.
class FakeDesktop final : public QDBusVirtualObject {
  public:
    static constexpr const char* ScreenSaver = "org.freedesktop.ScreenSaver";
    static constexpr const char* Portal = "org.freedesktop.portal.Desktop";

    explicit FakeDesktop(const QString& address)
        : bus_(QDBusConnection::connectToBus(address, QStringLiteral("desktop"))) {
        bus_.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
    }
    FakeDesktop(const FakeDesktop&) = delete;
    FakeDesktop& operator=(const FakeDesktop&) = delete;
    ~FakeDesktop() override { QDBusConnection::disconnectFromBus(QStringLiteral("desktop")); }

    void Offer(const char* service) { bus_.registerService(QLatin1String(service)); }
    void Withdraw(const char* service) { bus_.unregisterService(QLatin1String(service)); }
    [[nodiscard]] const QDBusConnection& Bus() const { return bus_; }
    [[nodiscard]] bool IsOnTheBus(const QString& name) const {
        return bus_.interface()->isServiceRegistered(name);
    }
    /// Gives the answers that were held back.
    void AnswerHeld() {
        for (const QDBusMessage& answer : std::exchange(held_, {}))
            bus_.send(answer);
        holds = false;
    }

    std::vector<std::string> calls;
    QString caller;      ///< the bus's name for who called last
    bool holds = false;  ///< answers wait for AnswerHeld
    bool refuses = false;

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        caller = message.service();
        calls.push_back(TextOf(message));
        const QDBusMessage answer = AnswerTo(message);
        if (holds) {
            held_.push_back(answer);
        } else {
            connection.send(answer);
        }
        return true;
    }

  private:
    static std::string TextOf(const QDBusMessage& message) {
        std::string text =
            (message.path() + ' ' + message.interface() + '.' + message.member()).toStdString();
        for (const QVariant& argument : message.arguments()) {
            text += " [";
            if (argument.canConvert<QDBusArgument>()) {
                for (const auto& [key, value] : qdbus_cast<QVariantMap>(argument).asKeyValueRange())
                    text += (key + '=' + value.toString()).toStdString();
            } else {
                text += argument.toString().toStdString();
            }
            text += "]";
        }
        return text;
    }
    [[nodiscard]] QDBusMessage AnswerTo(const QDBusMessage& message) const {
        if (refuses) return message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("no"));
        if (message.member() != QStringLiteral("Inhibit")) return message.createReply();
        if (message.interface() == QLatin1String(ScreenSaver)) return message.createReply(QVariant(77U));
        return message.createReply(QVariant::fromValue(QDBusObjectPath(QStringLiteral("/request/5"))));
    }

    QDBusConnection bus_;
    std::vector<QDBusMessage> held_;
};

}  // namespace tavrix
