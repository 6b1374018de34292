#pragma once

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QThread>
#include <QTimer>
#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace tavrix::idle {

/// Services on a bus that answer what a test says, in a thread of their own, since whoever asks waits.
class ScriptedBus final {
  public:
    explicit ScriptedBus(QString address) : address_(std::move(address)) {
        object_.moveToThread(&thread_);
        thread_.start();
        Run([this] {
            object_.bus = QDBusConnection::connectToBus(address_, QStringLiteral("scripted"));
            object_.bus.registerVirtualObject(QStringLiteral("/"), &object_, QDBusConnection::SubPath);
        });
    }
    ScriptedBus(const ScriptedBus&) = delete;
    ScriptedBus& operator=(const ScriptedBus&) = delete;
    ~ScriptedBus() {
        Run([this] {
            object_.bus = QDBusConnection(QString());
            QDBusConnection::disconnectFromBus(QStringLiteral("scripted"));
        });
        thread_.quit();
        thread_.wait();
    }

    /// A call, such as "org.x.Interface.Member 8", is answered by a value from now on; `service` is its owner.
    void Answer(const char* service, const std::string& call, const QVariant& value) {
        Run([&] {
            object_.bus.interface()->registerService(QString::fromLatin1(service));
            object_.answers[call] = value;
        });
    }
    void AnswerProperty(const char* service, const std::string& name, const QVariant& value) {
        Answer(service, "org.freedesktop.DBus.Properties.Get " + name,
               QVariant::fromValue(QDBusVariant(value)));
    }
    /// The same, but the answer comes after this time.
    void AnswerLate(const char* service, const std::string& call, const QVariant& value,
                    std::chrono::milliseconds after) {
        Answer(service, call, value);
        Run([&] { object_.late[call] = after; });
    }
    void Forget() {
        Run([this] { object_.answers.clear(); });
    }
    std::vector<std::string> Calls() {
        std::vector<std::string> calls;
        Run([&] { calls.swap(object_.calls); });
        return calls;
    }

  private:
    class Object final : public QDBusVirtualObject {
      public:
        QDBusConnection bus{QString()};
        std::map<std::string, QVariant> answers;
        std::map<std::string, std::chrono::milliseconds> late;
        std::vector<std::string> calls;

        bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
            std::string call = (message.interface() + QLatin1Char('.') + message.member()).toStdString();
            for (const QVariant& argument : message.arguments())
                call += " " + argument.toString().toStdString();
            calls.push_back(message.path().toStdString() + " " + call);
            const auto found = answers.find(call);
            const QDBusMessage answer =
                found != answers.end()
                    ? message.createReply(found->second)
                    : message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("none"));
            if (const auto after = late.find(call); after != late.end()) {
                QTimer::singleShot(after->second, this, [connection, answer] { connection.send(answer); });
            } else {
                connection.send(answer);
            }
            return true;
        }
        [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    };

    void Run(const std::function<void()>& step) {
        QMetaObject::invokeMethod(&object_, step, Qt::BlockingQueuedConnection);
    }

    QString address_;
    QThread thread_;
    Object object_;
};

}  // namespace tavrix::idle
