#include "backends/qt/desktop/QtWakefulness.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "wakefulness/FakeDesktop.h"
#include "wakefulness/PrivateBus.h"

namespace tavrix::qt {
namespace {

using Calls = std::vector<std::string>;

/// One bus for all tests, since a process joins its session bus but once.
QString BusAddress;

constexpr const char* HoldWord = "--hold";
constexpr const char* AsksScreenSaver =
    "/org/freedesktop/ScreenSaver org.freedesktop.ScreenSaver.Inhibit [Tavrix] [A slide show is playing]";
constexpr const char* ReleasesScreenSaver =
    "/org/freedesktop/ScreenSaver org.freedesktop.ScreenSaver.UnInhibit [77]";
constexpr const char* AsksPortal =
    "/org/freedesktop/portal/desktop org.freedesktop.portal.Inhibit.Inhibit [] [8] "
    "[reason=A slide show is playing]";
constexpr const char* ReleasesPortal = "/request/5 org.freedesktop.portal.Request.Close";

class QtWakefulnessTest : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_FALSE(BusAddress.isEmpty()) << "dbus-daemon does not start";
        desktop = std::make_unique<FakeDesktop>(BusAddress);
        desktop->Offer(FakeDesktop::ScreenSaver);
        desktop->Offer(FakeDesktop::Portal);
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
    /// What the desktop is asked, in any order, until it is this; then everything that is on its way has come.
    void ExpectCalls(Calls expected) const {
        EXPECT_TRUE(Comes([&] { return desktop->calls.size() >= expected.size(); }));
        RoundTrip();
        Calls came = desktop->calls;
        std::ranges::sort(came);
        std::ranges::sort(expected);
        EXPECT_EQ(came, expected);
        desktop->calls.clear();
    }
    /// A question to the bus and its answer from each side: what the program sent before has reached the bus, and then
    /// the desktop.
    void RoundTrip() const {
        for (const QDBusConnection& side : {QDBusConnection::sessionBus(), desktop->Bus()}) {
            bool answered = false;
            const QDBusPendingCallWatcher watcher(side.asyncCall(QDBusMessage::createMethodCall(
                "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ListNames")));
            QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, [&] { answered = true; });
            EXPECT_TRUE(Comes([&] { return answered; }));
        }
        QCoreApplication::processEvents();
    }

    std::unique_ptr<FakeDesktop> desktop;
    QtWakefulness wakefulness;
};

TEST_F(QtWakefulnessTest, AsksBothServicesAndReleasesBoth) {
    for (int round = 0; round < 2; ++round) {
        wakefulness.Inhibit(true);
        ExpectCalls({AsksScreenSaver, AsksPortal});
        wakefulness.Inhibit(false);
        ExpectCalls({ReleasesScreenSaver, ReleasesPortal});
    }
}

TEST_F(QtWakefulnessTest, TheSameWishAgainIsNoNews) {
    wakefulness.Inhibit(false);
    ExpectCalls({});
    wakefulness.Inhibit(true);
    wakefulness.Inhibit(true);
    ExpectCalls({AsksScreenSaver, AsksPortal});
    wakefulness.Inhibit(false);
    wakefulness.Inhibit(false);
    ExpectCalls({ReleasesScreenSaver, ReleasesPortal});
}

TEST_F(QtWakefulnessTest, OneServiceIsEnough) {
    desktop->Withdraw(FakeDesktop::Portal);
    wakefulness.Inhibit(true);
    ExpectCalls({AsksScreenSaver});
    wakefulness.Inhibit(false);
    ExpectCalls({ReleasesScreenSaver});

    desktop->Offer(FakeDesktop::Portal);
    desktop->Withdraw(FakeDesktop::ScreenSaver);
    wakefulness.Inhibit(true);
    ExpectCalls({AsksPortal});
    wakefulness.Inhibit(false);
    ExpectCalls({ReleasesPortal});
}

TEST_F(QtWakefulnessTest, ARefusalIsNotReleased) {
    desktop->refuses = true;
    wakefulness.Inhibit(true);
    ExpectCalls({AsksScreenSaver, AsksPortal});
    wakefulness.Inhibit(false);
    ExpectCalls({});
}

TEST_F(QtWakefulnessTest, AWishThatIsOverBeforeItsAnswerIsReleasedWithTheAnswer) {
    desktop->holds = true;
    wakefulness.Inhibit(true);
    wakefulness.Inhibit(false);
    ExpectCalls({AsksScreenSaver, AsksPortal});
    desktop->AnswerHeld();
    ExpectCalls({ReleasesScreenSaver, ReleasesPortal});
}

TEST_F(QtWakefulnessTest, TheEndOfTheObjectReleases) {
    auto other = std::make_unique<QtWakefulness>();
    other->Inhibit(true);
    ExpectCalls({AsksScreenSaver, AsksPortal});
    other.reset();
    ExpectCalls({ReleasesScreenSaver, ReleasesPortal});
}

TEST_F(QtWakefulnessTest, AProcessThatIsKilledLeavesTheBus) {
    QProcess program;
    program.start(QCoreApplication::applicationFilePath(), {HoldWord});
    ASSERT_TRUE(Comes([&] { return desktop->calls.size() == 2; }));
    EXPECT_TRUE(desktop->IsOnTheBus(desktop->caller));
    program.kill();
    EXPECT_TRUE(Comes([&] { return !desktop->IsOnTheBus(desktop->caller); }));
    program.waitForFinished();
}

TEST(QtWakefulnessAlone, WithoutABusNothingHappens) {
    QProcess program;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/bus");
    program.setProcessEnvironment(variables);
    program.start(QCoreApplication::applicationFilePath(), {HoldWord, "never"});
    EXPECT_TRUE(program.waitForFinished(20'000));
    EXPECT_EQ(program.exitCode(), 0);
}

/// The program's part in a test: it keeps the screen lit until it is killed, or only asks and ends.
int Hold(bool untilKilled) {
    QtWakefulness wakefulness;
    wakefulness.Inhibit(true);
    if (untilKilled) return QCoreApplication::exec();
    wakefulness.Inhibit(false);
    return 0;
}

}  // namespace
}  // namespace tavrix::qt

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc > 1 && std::string_view(argv[1]) == tavrix::qt::HoldWord) return tavrix::qt::Hold(argc == 2);
    const tavrix::PrivateBus bus;
    tavrix::qt::BusAddress = bus.Address();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
