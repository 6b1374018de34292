#include "backends/qt/idle/ScreenSaverService.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QMap>
#include <QStringList>
#include <optional>

#include "backends/linux/IdleBusName.h"
#include "idle/BusTest.h"

namespace tavrix::idle {
namespace {

const auto Name = QStringLiteral("org.freedesktop.ScreenSaver");

class ScreenSaverServiceTest : public BusTest {
  protected:
    /// A call by a program; its answer.
    QDBusMessage Call(QDBusConnection& program, const char* member, const QVariantList& arguments = {},
                      const char* path = "/org/freedesktop/ScreenSaver") {
        QDBusMessage message =
            QDBusMessage::createMethodCall(Name, QLatin1String(path), Name, QLatin1String(member));
        message.setArguments(arguments);
        const QDBusPendingCallWatcher watcher(program.asyncCall(message));
        EXPECT_TRUE(Comes([&] { return watcher.isFinished(); }));
        return watcher.reply();
    }
    quint32 Inhibit(QDBusConnection& program, const char* path = "/org/freedesktop/ScreenSaver") {
        const QDBusMessage answer =
            Call(program, "Inhibit", {QStringLiteral("player"), QStringLiteral("a film")}, path);
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
        return answer.arguments().value(0).toUInt();
    }

    QDBusConnection own = Join("own");
    QDBusConnection player = Join("player");
    QDBusConnection browser = Join("browser");
    ScreenSaverService service{own};
};

TEST_F(ScreenSaverServiceTest, ProgramsHoldTheScreenUntilTheyReleaseIt) {
    service.Offer();
    EXPECT_FALSE(service.Held());
    const quint32 first = Inhibit(player);
    const quint32 second = Inhibit(player, "/ScreenSaver");
    const quint32 third = Inhibit(browser);
    EXPECT_NE(first, second);
    EXPECT_NE(second, third);
    EXPECT_NE(first, 0U);
    Call(player, "UnInhibit", {first});
    EXPECT_TRUE(service.Held());
    Call(player, "UnInhibit", {third});
    Call(browser, "UnInhibit", {third});
    EXPECT_TRUE(service.Held()) << "one of the player's is left";
    Call(player, "UnInhibit", {second});
    EXPECT_FALSE(service.Held());
    Call(player, "UnInhibit", {second});
    EXPECT_FALSE(service.Held());
}

TEST_F(ScreenSaverServiceTest, WhatIsSomebodyElsesIsNotReleased) {
    service.Offer();
    const quint32 cookie = Inhibit(player);
    Call(browser, "UnInhibit", {cookie});
    EXPECT_TRUE(service.Held());
}

TEST_F(ScreenSaverServiceTest, AProgramThatEndsHoldsNothing) {
    service.Offer();
    Inhibit(player);
    Inhibit(player);
    Inhibit(browser);
    const QString gone = player.baseService();
    player = QDBusConnection(QString());
    Leave("player");
    EXPECT_TRUE(Comes([&] { return !browser.interface()->isServiceRegistered(gone); }));
    Call(browser, "GetActive");  // the service has heard of that end by now
    EXPECT_TRUE(service.Held()) << "the browser's is left";
    browser = QDBusConnection(QString());
    Leave("browser");
    EXPECT_TRUE(Comes([this] { return !service.Held(); }));
}

/// A session is long, and programs come and go.
TEST_F(ScreenSaverServiceTest, WhoIsGoneIsNotWatchedForAnyMore) {
    qDBusRegisterMetaType<QMap<QString, QStringList>>();
    const auto rulesFor = [this](const QString& name) -> std::optional<qsizetype> {
        const QDBusMessage answer = browser.call(
            QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                           "org.freedesktop.DBus.Debug.Stats", "GetAllMatchRules"));
        if (answer.type() != QDBusMessage::ReplyMessage) return std::nullopt;
        const auto all =
            qdbus_cast<QMap<QString, QStringList>>(answer.arguments().constFirst().value<QDBusArgument>());
        return all.value(own.baseService()).filter(QStringLiteral("'%1'").arg(name)).size();
    };
    const QString name = player.baseService();
    if (!rulesFor(name)) GTEST_SKIP() << "this bus does not tell what is watched";
    service.Offer();
    Inhibit(player);
    EXPECT_TRUE(Comes([&] { return rulesFor(name) == 1; }));
    player = QDBusConnection(QString());
    Leave("player");
    EXPECT_TRUE(Comes([&] { return rulesFor(name) == 0; }));
}

TEST_F(ScreenSaverServiceTest, AProgramThatHasReleasedOneHoldStillHoldsNothingAtItsEnd) {
    service.Offer();
    const quint32 cookie = Inhibit(player);
    Inhibit(player);
    Call(player, "UnInhibit", {cookie});
    EXPECT_TRUE(service.Held());
    player = QDBusConnection(QString());
    Leave("player");
    EXPECT_TRUE(Comes([this] { return !service.Held(); }));
}

TEST_F(ScreenSaverServiceTest, IsKnownAsOursByASecondName) {
    EXPECT_FALSE(player.interface()->isServiceRegistered(QLatin1String(IdleBusName)));
    service.Offer();
    EXPECT_EQ(player.interface()->serviceOwner(QLatin1String(IdleBusName)).value(), own.baseService());
}

TEST_F(ScreenSaverServiceTest, OnlyItsOwnInterfaceIsAnswered) {
    service.Offer();
    int activity = 0;
    service.onActivity = [&] { ++activity; };
    for (const auto& [interface, answered] : {std::pair("org.other.ScreenSaver", false), {"", true}}) {
        const QDBusMessage message =
            QDBusMessage::createMethodCall(Name, QStringLiteral("/ScreenSaver"), QLatin1String(interface),
                                           QStringLiteral("SimulateUserActivity"));
        const QDBusPendingCallWatcher watcher(player.asyncCall(message));
        EXPECT_TRUE(Comes([&] { return watcher.isFinished(); }));
        EXPECT_EQ(watcher.isError(), !answered) << interface;
        EXPECT_EQ(activity, answered ? 1 : 0) << interface;
    }
}

TEST_F(ScreenSaverServiceTest, WithoutABusNothingIsOffered) {
    ScreenSaverService none{QDBusConnection(QStringLiteral("nowhere"))};
    none.Offer();
    EXPECT_FALSE(none.Held());
}

TEST_F(ScreenSaverServiceTest, TellsWhetherTheSaverRunsAndHearsOfActivity) {
    service.Offer();
    bool active = false;
    int activity = 0;
    service.isActive = [&] { return active; };
    service.onActivity = [&] { ++activity; };
    EXPECT_EQ(Call(player, "GetActive").arguments(), QVariantList{false});
    active = true;
    EXPECT_EQ(Call(player, "GetActive").arguments(), QVariantList{true});
    Call(player, "SimulateUserActivity");
    EXPECT_EQ(activity, 1);
}

TEST_F(ScreenSaverServiceTest, WhatItDoesNotKnowIsAnError) {
    service.Offer();
    EXPECT_EQ(Call(player, "Lock").type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(Call(player, "Inhibit", {QStringLiteral("just a name")}).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(Call(player, "UnInhibit", {QStringLiteral("x")}).type(), QDBusMessage::ErrorMessage);
    EXPECT_FALSE(service.Held());
}

TEST_F(ScreenSaverServiceTest, AnotherSaverKeepsTheName) {
    ASSERT_TRUE(player.interface()->registerService(Name));
    service.Offer();
    EXPECT_EQ(player.interface()->serviceOwner(Name).value(), player.baseService());
    ASSERT_TRUE(player.interface()->unregisterService(Name));
    EXPECT_FALSE(player.interface()->isServiceRegistered(Name)) << "it does not wait for it";
}

TEST_F(ScreenSaverServiceTest, AnotherSaverMayTakeTheName) {
    service.Offer();
    EXPECT_EQ(player.interface()->serviceOwner(Name).value(), own.baseService());
    EXPECT_EQ(
        player.interface()->registerService(Name, QDBusConnectionInterface::ReplaceExistingService).value(),
        QDBusConnectionInterface::ServiceRegistered);
    EXPECT_EQ(player.interface()->serviceOwner(Name).value(), player.baseService());
}

}  // namespace
}  // namespace tavrix::idle
