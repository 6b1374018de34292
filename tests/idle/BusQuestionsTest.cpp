#include "backends/qt/idle/BusQuestions.h"

#include <algorithm>

#include "idle/BusTest.h"
#include "idle/ScriptedBus.h"

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

}  // namespace
}  // namespace tavrix::idle
