#include <new>

#include "base/RuntimeError.h"
#include "forms_conformance/ConformanceTest.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

/// A window whose handlers leave an error to whoever called them.
class LastResortTest : public ConformanceTest {
  protected:
    LastResortTest() {
        form.Show();
        driver->Settle();
    }
    /// The box that tells of an error, and the lock that a handler held until then.
    void Expect(const std::string& text) {
        app.Screen().MousePointer = MousePointer::Hourglass;
        driver->ScriptNextBox({.expected = {.text = text, .icon = BoxIcon::Stop}});
    }
    void ExpectAlive() {
        driver->Settle();
        EXPECT_EQ(app.Screen().MousePointer.Get(), MousePointer::Default);
        int clicks = 0;
        form.button.OnClick = [&clicks] { ++clicks; };
        driver->UserClicks(form.button);
        driver->Settle();
        EXPECT_EQ(clicks, 1);
    }

    TestForm& form = app.Load<TestForm>(log);
};

TEST_F(LastResortTest, AnErrorOfAControlsHandlerIsTold) {
    Expect("File not found...");
    form.button.OnClick = [] { throw RuntimeError(ErrorNumber::FileNotFound); };
    driver->UserClicks(form.button);
    ExpectAlive();
}

TEST_F(LastResortTest, AnErrorOfAMenusHandlerIsTold) {
    Expect("Disk full...");
    form.mnuOpen.Install([] { throw RuntimeError(ErrorNumber::DiskFull); });
    driver->UserChooses(form.mnuOpen);
    ExpectAlive();
}

TEST_F(LastResortTest, AnErrorOfAFormsHandlerIsTold) {
    Expect("Path not found...");
    form.KeyPreview = true;
    form.onKey = [](int&) { throw RuntimeError(ErrorNumber::PathNotFound); };
    driver->UserKey(form, 'A', ShiftMask::None);
    ExpectAlive();
}

TEST_F(LastResortTest, RefusedMemoryIsTold) {
    Expect("Out of memory...");
    form.button.OnClick = [] { throw std::bad_alloc(); };
    driver->UserClicks(form.button);
    ExpectAlive();
}

TEST_F(LastResortTest, ATimerThatFailsTicksOn) {
    int ticks = 0;
    Expect("Overflow...");
    form.timer.OnTimer = [&ticks] {
        if (++ticks == 1) throw RuntimeError(ErrorNumber::Overflow);
    };
    form.timer.Interval = 20;
    form.timer.Enabled = true;
    driver->Pass(Milliseconds(200));
    EXPECT_GE(ticks, 2);
    form.timer.Enabled = false;
    ExpectAlive();
}

}  // namespace
}  // namespace tavrix::conformance
