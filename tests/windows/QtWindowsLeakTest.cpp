// What opens and closes leaves nothing behind.

#include <gtest/gtest.h>
#include <malloc.h>

#include <QApplication>
#include <QPixmapCache>
#include <QWidget>
#include <QWindow>
#include <string>
#include <vector>

#include "settings/frmAbout.h"
#include "viewer/MainViewFrm.h"
#include "windows/EveryWindow.h"

namespace tavrix::windows {
namespace {

/// What a process has at a moment.
struct Holding {
    qsizetype widgets = 0;
    qsizetype windows = 0;
    std::size_t bytes = 0;  ///< of its heap
};

/// What the log of the services in memory takes, which notes every call.
std::size_t BytesOfLog(const Program& program) {
    const std::vector<std::string>& log = program.platform.faults.Log();
    std::size_t bytes = log.capacity() * sizeof(std::string);
    for (const std::string& line : log)
        bytes += line.capacity() + 2 * sizeof(void*);
    return bytes;
}

Holding Now(Program& program) {
    for (int rounds = 0; rounds < 3; ++rounds) {
        program.app.DoEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QPixmapCache::clear();  // it has a bound of its own
    return {QApplication::allWidgets().size(), QGuiApplication::allWindows().size(),
            mallinfo2().uordblks - BytesOfLog(program)};
}

void CloseAllBut(const MainViewFrm& view, forms::Application& app) {
    for (int i = app.FormCount() - 1; i >= 0; --i) {
        if (i < app.FormCount() && &app.FormAt(i) != &view) app.Unload(app.FormAt(i));
    }
}

/// Opens and closes windows in rounds. Nothing may be there after the last that was not there after the first few; the heap
/// may grow by what caches take.
void ExpectNothingLeft(Program& program, const std::vector<Window>& windows, int rounds) {
    constexpr int warming = 3;
    constexpr std::size_t allowance = 96 * 1024;
    Holding first;
    for (int round = 0; round < rounds; ++round) {
        if (round == warming) first = Now(program);
        for (const Window& window : windows) {
            window.load(program).Show();
            program.app.DoEvents();
            CloseAllBut(program.View(), program.app);
            program.ForgetKept();
            ASSERT_EQ(program.app.FormCount(), 1) << window.name;
        }
    }
    const Holding last = Now(program);
    EXPECT_EQ(last.widgets, first.widgets);
    EXPECT_EQ(last.windows, first.windows);
    EXPECT_LT(last.bytes, first.bytes + allowance);
    testing::Test::RecordProperty(
        "grown", std::to_string(static_cast<long long>(last.bytes) - static_cast<long long>(first.bytes)));
}

TEST(QtWindowsLeakTest, TenRoundsOfAllWindows) {
    const auto toolkit = MakeToolkit();
    Program program(*toolkit);
    std::vector<Window> windows = EveryWindow();
    std::erase_if(windows, [](const Window& window) { return window.name.starts_with("MainViewFrm"); });
    ExpectNothingLeft(program, windows, 10);
}

TEST(QtWindowsLeakTest, FiftyRoundsOfTheAboutBox) {
    const auto toolkit = MakeToolkit();
    Program program(*toolkit);
    ExpectNothingLeft(program,
                      {{"frmAbout",
                        [](scenes::Scenery& in) -> forms::Form& {
                            auto& about = in.app.Load<frmAbout>(in.module);
                            about.Show();
                            for (int tick = 0; tick < 3; ++tick) {
                                about.TimerSea.OnTimer();
                                about.TimerDay.OnTimer();
                                in.app.DoEvents();
                            }
                            return about;
                        }}},
                      50);
}

}  // namespace
}  // namespace tavrix::windows
