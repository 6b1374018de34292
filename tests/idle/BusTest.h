#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <chrono>
#include <functional>

#include "wakefulness/PrivateBus.h"

namespace tavrix::idle {

/// A bus of the test's own.
class BusTest : public testing::Test {
  protected:
    void SetUp() override { ASSERT_FALSE(bus_.Address().isEmpty()) << "dbus-daemon does not start"; }
    void TearDown() override {
        for (const QString& name : names_)
            QDBusConnection::disconnectFromBus(name);
    }

    QDBusConnection Join(const char* name) {
        names_.append(QString::fromLatin1(name));
        return QDBusConnection::connectToBus(bus_.Address(), names_.back());
    }
    static void Leave(const char* name) { QDBusConnection::disconnectFromBus(QString::fromLatin1(name)); }
    [[nodiscard]] const QString& Address() const { return bus_.Address(); }
    /// The bus knows the service on return: left alone it would look into its folder at a time of its own.
    void PutService(const QString& name, const QString& program) const {
        bus_.PutService(name, program);
        const QString reloading = QStringLiteral("reloading");
        const QDBusMessage answer =
            QDBusConnection::connectToBus(Address(), reloading)
                .call(QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                     "org.freedesktop.DBus", "ReloadConfig"));
        QDBusConnection::disconnectFromBus(reloading);
        ASSERT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
    }

    /// Lets messages run until a condition holds.
    static bool Comes(const std::function<bool()>& condition) {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > limit) return false;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        }
        return true;
    }

  private:
    PrivateBus bus_;
    QStringList names_;
};

}  // namespace tavrix::idle
