#include "forms_conformance/ConformanceTest.h"

namespace tavrix::conformance {
namespace {

using namespace forms;
using std::chrono_literals::operator""ms;

class LoopsTest : public ConformanceTest {};

TEST_F(LoopsTest, AModalFormEndsWhenItIsHidden) {
    auto& form = app.Load<TestForm>(log);
    form.button.OnClick = [&] {
        form.Hide();
        log.emplace_back("hidden");
    };
    driver->Soon([&] { driver->UserClicks(form.button); });
    form.ShowModal();
    log.emplace_back("after");
    EXPECT_EQ(Count(log, "hidden"), 1);
    EXPECT_EQ(log.back(), "after");
    EXPECT_FALSE(driver->IsShown(form));
}

TEST_F(LoopsTest, AModalFormMayShowItselfAgainFromItsHandler) {
    auto& form = app.Load<TestForm>(log);
    int clicks = 0;
    form.button.OnClick = [&] {
        form.Hide();
        if (++clicks == 1) {
            driver->Soon([&] { driver->UserClicks(form.button); });
            form.ShowModal();
            log.emplace_back("inner over");
        }
    };
    driver->Soon([&] { driver->UserClicks(form.button); });
    form.ShowModal();
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(Count(log, "inner over"), 1);
}

TEST_F(LoopsTest, ModalInsideModal) {
    auto& outer = app.Load<TestForm>(log, "Outer");
    auto& inner = app.Load<TestForm>(log, "Inner");
    inner.button.OnClick = [&] {
        log.emplace_back("inner click");
        inner.Hide();
    };
    outer.button.OnClick = [&] {
        driver->Soon([&] { driver->UserClicks(inner.button); });
        inner.ShowModal();
        log.emplace_back("inner over");
        EXPECT_TRUE(driver->IsShown(outer));
        outer.Hide();
    };
    driver->Soon([&] { driver->UserClicks(outer.button); });
    outer.ShowModal();
    EXPECT_EQ(Count(log, "inner click"), 1);
    EXPECT_EQ(Count(log, "inner over"), 1);
    EXPECT_EQ(Count(log, "Outer activate"), 2);
    EXPECT_EQ(Count(log, "Inner activate"), 1);
}

TEST_F(LoopsTest, AFormMayUnloadItselfInItsHandler) {
    auto& form = app.Load<TestForm>(log);
    form.button.OnClick = [&] {
        EXPECT_TRUE(app.Unload(form));
        app.DoEvents();
        log.emplace_back("code goes on in " + form.Name());
    };
    form.Show();
    driver->Settle();
    driver->Soon([&] { driver->UserClicks(form.button); });
    app.Run();
    EXPECT_EQ(log.back(), "code goes on in TestForm");
    EXPECT_EQ(app.FormCount(), 0);
}

TEST_F(LoopsTest, AFormShownAboveAModalOneStaysUsable) {
    auto& dialog = app.Load<TestForm>(log, "Dialog");
    auto& bar = app.Load<TestForm>(log, "Bar");
    bar.button.OnClick = [&] { dialog.Hide(); };
    driver->Soon([&] {
        bar.Show();
        driver->Soon([&] { driver->UserClicks(bar.button); });
    });
    dialog.ShowModal();
    EXPECT_TRUE(driver->IsShown(bar));
}

TEST_F(LoopsTest, ActivateComesWithTheFirstShowAfterResize) {
    auto& form = app.Load<TestForm>(log);
    log.clear();
    form.Show();
    driver->Settle();
    ASSERT_GE(log.size(), 2U);
    EXPECT_EQ(log.front(), "TestForm resize");
    EXPECT_EQ(Count(log, "TestForm activate"), 1);
}

TEST_F(LoopsTest, ActivateComesOnReturnFromAFormButNotFromABox) {
    auto& form = app.Load<TestForm>(log);
    auto& dialog = app.Load<TestForm>(log, "Dialog");
    form.Show();
    driver->Settle();
    log.clear();

    driver->ScriptNextBox({.expected = {.text = "Failed"}});
    EXPECT_EQ(app.MessageBox({.text = "Failed"}), Answer::Ok);
    driver->Settle();
    EXPECT_EQ(Count(log, "TestForm activate"), 0);

    driver->Soon([&] { dialog.Hide(); });
    dialog.ShowModal();
    driver->Settle();
    EXPECT_EQ(Count(log, "TestForm activate"), 1);
}

TEST_F(LoopsTest, ABoxFromAnActivateHandlerComesOnce) {
    auto& form = app.Load<TestForm>(log);
    form.onActivate = [this] { app.MessageBox({.text = "No drive"}); };
    driver->ScriptNextBox({.expected = {.text = "No drive"}});
    form.Show();
    driver->Settle();
    EXPECT_EQ(Count(log, "TestForm activate"), 1);
}

TEST_F(LoopsTest, TimersTickInModalLoopsAndBoxes) {
    auto& form = app.Load<TestForm>(log);
    int ticks = 0;
    form.timer.OnTimer = [&] {
        ++ticks;
        if (ticks == 2) form.Hide();
    };
    form.timer.Interval = 5;
    form.ShowModal();
    EXPECT_EQ(ticks, 2);

    driver->ScriptNextBox({.expected = {.text = "Wait"}, .openFor = 60ms});
    app.MessageBox({.text = "Wait"});
    EXPECT_GT(ticks, 2);
}

TEST_F(LoopsTest, ATickDoesNotNest) {
    auto& form = app.Load<TestForm>(log);
    int depth = 0;
    int deepest = 0;
    int ticks = 0;
    form.timer.OnTimer = [&] {
        ++ticks;
        deepest = std::max(deepest, ++depth);
        if (ticks == 1) driver->Pass(40ms);
        --depth;
    };
    form.timer.Interval = 5;
    form.Show();
    driver->Pass(120ms);
    form.timer.Enabled = false;
    EXPECT_GT(ticks, 1);
    EXPECT_EQ(deepest, 1);
}

TEST_F(LoopsTest, EnablingATimerAgainRestartsItsWait) {
    auto& form = app.Load<TestForm>(log);
    int ticks = 0;
    form.timer.OnTimer = [&] { ++ticks; };
    form.timer.Interval = 400;
    form.Show();
    const Milliseconds start = driver->GetToolkit().Now();
    for (int i = 0; i < 6; ++i) {
        driver->Pass(80ms);
        form.timer.Enabled = true;
    }
    if (driver->GetToolkit().Now() - start < 2000ms) {
        EXPECT_EQ(ticks, 0);
    }
    form.timer.Interval = 1;
    driver->Pass(50ms);
    EXPECT_GT(ticks, 0);
}

TEST_F(LoopsTest, ClosingByTheFrameAsksTheForm) {
    auto& form = app.Load<TestForm>(log);
    bool refuse = true;
    form.onQueryUnload = [&](bool& cancel) {
        log.emplace_back("query");
        cancel = refuse;
    };
    form.Show();
    driver->Settle();
    driver->UserCloses(form);
    driver->Settle();
    EXPECT_EQ(Count(log, "query"), 1);
    EXPECT_EQ(app.FormCount(), 1);
    EXPECT_TRUE(driver->IsShown(form));
    refuse = false;
    driver->UserCloses(form);
    driver->Settle();
    EXPECT_EQ(Count(log, "query"), 2);
    EXPECT_EQ(app.FormCount(), 0);
}

}  // namespace
}  // namespace tavrix::conformance
