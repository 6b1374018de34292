#include "backends/qt/idle/BusQuestions.h"

#include <QDBusConnectionInterface>
#include <QDBusVirtualObject>
#include <algorithm>

#include "idle/BusTest.h"
#include "idle/ScriptedBus.h"
#include "linux/Script.h"

namespace tavrix::idle {
namespace {

constexpr const char* Logind = "org.freedesktop.login1";
constexpr const char* Mutter = "org.gnome.Mutter.IdleMonitor";
constexpr const char* ScreenSaver = "org.freedesktop.ScreenSaver";

class BusQuestionsTest : public BusTest {
  protected:
    ScriptedBus services{Address()};
    BusQuestions questions{Join("session"), Join("system")};

    void Blocked(const char* what) {
        services.AnswerProperty(Logind, "org.freedesktop.login1.Manager BlockInhibited", what);
    }
    void OfSession(const std::string& name, bool value) {
        services.AnswerProperty(Logind, "org.freedesktop.login1.Session " + name, value);
    }
};

TEST_F(BusQuestionsTest, WhereNobodyIsNothingIsHeldAndNothingKnown) {
    EXPECT_FALSE(questions.Held());
    EXPECT_EQ(questions.IdleTime(), std::nullopt);
}

TEST_F(BusQuestionsTest, WithoutABusEither) {
    const BusQuestions none{QDBusConnection(QStringLiteral("nowhere")),
                            QDBusConnection(QStringLiteral("nowhere"))};
    EXPECT_FALSE(none.Held());
    EXPECT_EQ(none.IdleTime(), std::nullopt);
}

TEST_F(BusQuestionsTest, MutterTellsTheTime) {
    services.Answer(Mutter, "org.gnome.Mutter.IdleMonitor.GetIdletime", QVariant(quint64(5'000'000'000)));
    services.Answer(ScreenSaver, "org.freedesktop.ScreenSaver.GetSessionIdleTime", QVariant(quint32(7)));
    EXPECT_EQ(questions.IdleTime(), Milliseconds(5'000'000'000));
    EXPECT_EQ(services.Calls(), (std::vector<std::string>{"/org/gnome/Mutter/IdleMonitor/Core "
                                                          "org.gnome.Mutter.IdleMonitor.GetIdletime"}));
}

TEST_F(BusQuestionsTest, OtherwiseTheDesktopsSaverDoes) {
    services.Answer(ScreenSaver, "org.freedesktop.ScreenSaver.GetSessionIdleTime", QVariant(quint32(61'000)));
    EXPECT_EQ(questions.IdleTime(), Milliseconds(61'000));
}

TEST_F(BusQuestionsTest, LogindsBlockOfIdleHolds) {
    Blocked("shutdown:sleep");
    EXPECT_FALSE(questions.Held());
    Blocked("shutdown:idle:sleep");
    EXPECT_TRUE(questions.Held());
    Blocked("idle");
    EXPECT_TRUE(questions.Held());
    Blocked("handle-idle-key:idleness");
    EXPECT_FALSE(questions.Held());
    const auto calls = services.Calls();
    EXPECT_NE(std::ranges::find(calls,
                                "/org/freedesktop/login1 org.freedesktop.DBus.Properties.Get "
                                "org.freedesktop.login1.Manager BlockInhibited"),
              calls.end());
}

TEST_F(BusQuestionsTest, ALockedSessionAndOneInTheBackgroundAreLeftAlone) {
    OfSession("LockedHint", false);
    OfSession("Active", true);
    EXPECT_FALSE(questions.Held());
    OfSession("LockedHint", true);
    EXPECT_TRUE(questions.Held());
    OfSession("LockedHint", false);
    OfSession("Active", false);
    EXPECT_TRUE(questions.Held());
}

TEST_F(BusQuestionsTest, AProgramThatTellsTheDesktopHolds) {
    for (const bool held : {false, true}) {
        services.Answer("org.gnome.SessionManager", "org.gnome.SessionManager.IsInhibited 8", held);
        EXPECT_EQ(questions.Held(), held);
    }
    services.Forget();
    for (const bool held : {false, true}) {
        services.Answer("org.kde.Solid.PowerManagement.PolicyAgent",
                        "org.kde.Solid.PowerManagement.PolicyAgent.HasInhibition 4", held);
        EXPECT_EQ(questions.Held(), held);
    }
}

TEST_F(BusQuestionsTest, TheDesktopsOwnSaverHolds) {
    for (const bool active : {false, true}) {
        services.Answer("org.gnome.ScreenSaver", "org.gnome.ScreenSaver.GetActive", active);
        EXPECT_EQ(questions.Held(), active);
    }
    services.Forget();
    for (const bool active : {false, true}) {
        services.Answer(ScreenSaver, "org.freedesktop.ScreenSaver.GetActive", active);
        EXPECT_EQ(questions.Held(), active);
    }
}

/// The saver that this process offers. It runs, for seven milliseconds.
class OwnSaver final : public QDBusVirtualObject {
  public:
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        const bool active = message.member() == QLatin1String("GetActive");
        connection.send(message.createReply(active ? QVariant(true) : QVariant(quint32(7))));
        return true;
    }
    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
};

TEST_F(BusQuestionsTest, OurOwnServiceIsNotAsked) {
    OwnSaver saver;
    QDBusConnection session = questions.SessionBus();
    ASSERT_TRUE(session.registerVirtualObject(QStringLiteral("/ScreenSaver"), &saver));
    ASSERT_TRUE(session.interface()->registerService(QLatin1String(ScreenSaver)));
    EXPECT_FALSE(questions.Held());
    EXPECT_EQ(questions.IdleTime(), std::nullopt);
}

TEST_F(BusQuestionsTest, NoServiceIsStartedByAQuestion) {
    const TestFolder folder;
    const std::string program = PutScript(folder, "service", "touch '" + folder.At("started") + "'");
    for (const char* name : {Mutter, ScreenSaver, "org.gnome.SessionManager", "org.gnome.ScreenSaver"})
        PutService(QLatin1String(name), QString::fromStdString(program));
    QDBusConnectionInterface& bus = *questions.SessionBus().interface();
    ASSERT_TRUE(bus.activatableServiceNames().value().contains(QLatin1String("org.gnome.ScreenSaver")));
    EXPECT_FALSE(questions.Held());
    EXPECT_EQ(questions.IdleTime(), std::nullopt);
    EXPECT_FALSE(folder.Has("started"));
}

TEST_F(BusQuestionsTest, WhoAnswersTooLateKnowsNothing) {
    services.AnswerLate("org.gnome.ScreenSaver", "org.gnome.ScreenSaver.GetActive", true,
                        std::chrono::seconds(8));
    EXPECT_FALSE(questions.Held());
}

}  // namespace
}  // namespace tavrix::idle
