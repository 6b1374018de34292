#include "forms_conformance/ConformanceTest.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

class MenusTest : public ConformanceTest {
  protected:
    TestForm& form = app.Load<TestForm>(log);
};

TEST_F(MenusTest, AnEntryWithoutAHandlerIsShownDisabled) {
    form.mnuOpen.Install([] {});
    form.Show();
    driver->Settle();
    EXPECT_TRUE(driver->Shown(form.mnuOpen).enabled);
    EXPECT_FALSE(driver->Shown(form.mnuBare).enabled);
    EXPECT_TRUE(form.mnuBare.Enabled);
    form.mnuBare.Install([] {});
    EXPECT_TRUE(driver->Shown(form.mnuBare).enabled);
}

TEST_F(MenusTest, StatesArePushed) {
    form.mnuOpen.Install([] {});
    form.mnuDeep.Install([] {});
    form.mnuDeep.Checked = true;
    form.Show();
    driver->Settle();
    EXPECT_EQ(driver->Shown(form.mnuDeep).caption, "90\u00B0 CW          [Alt+Right Arrow]");
    EXPECT_TRUE(driver->Shown(form.mnuDeep).checked);
    EXPECT_EQ(driver->Shown(form.mnuLine).kind, MenuItemState::Kind::Separator);
    EXPECT_EQ(driver->Shown(form.mnuFile).caption, "&File");
    EXPECT_FALSE(driver->Shown(form.mnuLast[0]).visible);

    form.mnuDeep.Checked = false;
    form.mnuOpen.Enabled = false;
    form.mnuLine.Visible = false;
    form.mnuOpen.Caption = "Can't Open";
    form.mnuLast[1].Caption = "  C:\\A & B.bmp";
    form.mnuLast[1].Visible = true;
    EXPECT_FALSE(driver->Shown(form.mnuDeep).checked);
    EXPECT_FALSE(driver->Shown(form.mnuOpen).enabled);
    EXPECT_FALSE(driver->Shown(form.mnuLine).visible);
    EXPECT_EQ(driver->Shown(form.mnuOpen).caption, "Can't Open");
    EXPECT_TRUE(driver->Shown(form.mnuLast[1]).visible);
    EXPECT_EQ(driver->Shown(form.mnuLast[1]).caption, "  C:\\A & B.bmp");
}

TEST_F(MenusTest, AChosenEntryRunsItsHandlerOnce) {
    form.mnuDeep.Install([this] { log.emplace_back("deep"); });
    form.mnuLast.Install([this](int index) { log.push_back("last " + std::to_string(index)); });
    form.mnuLast[2].Visible = true;
    form.Show();
    driver->Settle();
    driver->UserChooses(form.mnuDeep);
    driver->UserChooses(form.mnuLast[2]);
    driver->Settle();
    EXPECT_EQ(Count(log, "deep"), 1);
    EXPECT_EQ(Count(log, "last 2"), 1);
}

TEST_F(MenusTest, OnlyTheProgramChecksAnEntry) {
    form.mnuOpen.Install([] {});
    form.mnuOpen.Checked = true;
    form.Show();
    driver->Settle();
    driver->UserChooses(form.mnuOpen);
    driver->Settle();
    EXPECT_TRUE(driver->Shown(form.mnuOpen).checked);
}

TEST_F(MenusTest, WhatIsOnOrOffIsSomethingToCheckWhileItIsOffToo) {
    form.mnuOpen.Checkable = true;
    form.Show();
    driver->Settle();
    EXPECT_TRUE(driver->Shown(form.mnuOpen).checkable);
    EXPECT_FALSE(driver->Shown(form.mnuOpen).checked);
    EXPECT_FALSE(driver->Shown(form.mnuBare).checkable);
    form.mnuOpen.Checked = true;
    form.mnuOpen.Checked = false;
    EXPECT_TRUE(driver->Shown(form.mnuOpen).checkable);
}

TEST_F(MenusTest, ALetterBelongsToTheFirstEntryThatNamesIt) {
    form.Show();
    driver->Settle();
    EXPECT_EQ(driver->Shown(form.mnuOpen).caption, "&Open Image");
    EXPECT_EQ(driver->Shown(form.mnuMore).caption, "More");
    EXPECT_EQ(form.mnuMore.Caption.Get(), "M&ore");
    form.mnuMore.Caption = "Fish && &Chips";
    EXPECT_EQ(driver->Shown(form.mnuMore).caption, "Fish && &Chips");
    form.mnuMore.Caption = "Fish && Chips && &Onions";
    EXPECT_EQ(driver->Shown(form.mnuMore).caption, "Fish && Chips && Onions");
}

TEST_F(MenusTest, APopupRunsTheChosenEntry) {
    form.mnuOpen.Install([this] { log.emplace_back("open"); });
    form.Show();
    driver->Settle();
    const int opened = app.Opened();
    driver->ScriptNextPopup(&form.mnuOpen);
    form.PopupMenu(form.mnuFile, &form.mnuOpen);
    EXPECT_EQ(Count(log, "open"), 1);
    EXPECT_EQ(app.Opened(), opened + 1);

    driver->UserChooses(form.mnuOpen);  // and the menu bar still works
    driver->Settle();
    EXPECT_EQ(Count(log, "open"), 2);
}

TEST_F(MenusTest, APopupThatIsClosedRunsNothing) {
    form.KeyPreview = true;
    form.mnuOpen.Install([this] { log.emplace_back("open"); });
    form.Show();
    driver->Settle();
    driver->ScriptNextPopup(nullptr);
    form.PopupMenu(form.mnuFile, &form.mnuOpen);
    driver->Settle();
    EXPECT_EQ(Count(log, "open"), 0);
    EXPECT_EQ(Count(log, "TestForm key 27/0"), 0);
}

TEST_F(MenusTest, AHandlerMayUnloadTheForm) {
    form.mnuOpen.Install([this] {
        app.Unload(form);
        app.DoEvents();
        log.emplace_back("done");
    });
    form.Show();
    driver->Settle();
    driver->Soon([this] { driver->UserChooses(form.mnuOpen); });
    app.Run();
    EXPECT_EQ(Count(log, "done"), 1);
}

}  // namespace
}  // namespace tavrix::conformance
