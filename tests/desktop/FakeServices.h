#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QMetaObject>
#include <QMutex>
#include <QThread>
#include <QVariantMap>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tavrix {

/// Services on a bus, answering from a thread of their own, since the program waits for some answers. Calls are noted
/// as text. A method without an answer is an error.
class FakeServices final : public QDBusVirtualObject {
  public:
    /// Gives the arguments of the reply; it may send signals of its own.
    using Answer = std::function<QVariantList(const QDBusMessage& call, const QDBusConnection& bus)>;

    explicit FakeServices(const QString& address) {
        moveToThread(&thread_);
        thread_.start();
        InThread([&] {
            QDBusConnection bus = QDBusConnection::connectToBus(address, Name());
            bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
        });
    }
    FakeServices(const FakeServices&) = delete;
    FakeServices& operator=(const FakeServices&) = delete;
    ~FakeServices() override {
        InThread([&] { QDBusConnection::disconnectFromBus(Name()); });
        thread_.quit();
        thread_.wait();
    }

    /// A service with its methods.
    void Offer(const char* service, const std::map<QString, Answer>& answers) {
        {
            const QMutexLocker lock(&mutex_);
            for (const auto& [method, answer] : answers)
                answers_.insert_or_assign(method, answer);
        }
        InThread([&] { QDBusConnection(Name()).registerService(QLatin1String(service)); });
    }
    /// What was called since the last time.
    [[nodiscard]] std::vector<std::string> TakeCalls() {
        const QMutexLocker lock(&mutex_);
        return std::exchange(calls_, {});
    }

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        Answer answer;
        {
            const QMutexLocker lock(&mutex_);
            calls_.push_back(TextOf(message));
            const auto found = answers_.find(message.member());
            if (found != answers_.end()) answer = found->second;
        }
        bus.send(answer ? message.createReply(answer(message, bus))
                        : message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("no")));
        return true;
    }

  private:
    static QString Name() { return QStringLiteral("fake services"); }

    void InThread(const std::function<void()>& action) {
        QMetaObject::invokeMethod(this, action, Qt::BlockingQueuedConnection);
    }
    static std::string TextOf(const QVariant& value) {
        if (value.metaType() == QMetaType::fromType<QDBusVariant>())
            return TextOf(value.value<QDBusVariant>().variant());
        if (value.metaType() == QMetaType::fromType<QDBusArgument>()) {
            std::string text;
            for (const auto& [key, entry] : qdbus_cast<QVariantMap>(value).asKeyValueRange())
                text += (text.empty() ? "" : " ") + key.toStdString() + "=" + TextOf(entry);
            return text;
        }
        return value.toString().toStdString();
    }
    static std::string TextOf(const QDBusMessage& message) {
        std::string text =
            (message.path() + ' ' + message.interface() + '.' + message.member()).toStdString();
        for (const QVariant& argument : message.arguments())
            text += " [" + TextOf(argument) + "]";
        return text;
    }

    QThread thread_;
    QMutex mutex_;
    std::map<QString, Answer> answers_;
    std::vector<std::string> calls_;
};

}  // namespace tavrix
