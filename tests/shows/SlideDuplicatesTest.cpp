#include "shows/editor/SlideDuplicates.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "platform/forms/RowRanges.h"
#include "shows/editor/frmSlideDup.h"
#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

using Paths = std::vector<std::string>;

TEST(SlideDuplicates, AreListedOnceInTheOrderOfTheirSecondOccurrence) {
    const Paths slides{"C:\\a.bmp", "C:\\b.bmp", "c:\\B.BMP", "C:\\A.bmp", "C:\\a.bmp", "C:\\c.bmp"};
    EXPECT_EQ(DuplicateSlides(slides, ShowFolder("")), (Paths{"C:\\B.BMP", "C:\\A.BMP"}));
    EXPECT_EQ(DuplicateSlides(Paths{"C:\\a.bmp"}, ShowFolder("")), Paths());
    EXPECT_EQ(DuplicateSlides(Paths(), ShowFolder("")), Paths());
}

TEST(SlideDuplicates, ARelativePathCountsAsAFullOneWhereTheShowHasAFolder) {
    const Paths slides{"C:\\Shows\\Pics\\a.bmp", "Pics\\a.bmp"};
    EXPECT_EQ(DuplicateSlides(slides, ShowFolder("C:\\Shows")), (Paths{"C:\\SHOWS\\PICS\\A.BMP"}));
    EXPECT_EQ(DuplicateSlides(slides, ShowFolder("")), Paths());
    EXPECT_EQ(RowsOfSlides(Paths{"C:\\SHOWS\\PICS\\A.BMP"}, slides, ShowFolder("C:\\Shows")),
              (std::vector<int>{0, 1}));
    EXPECT_EQ(RowsOfSlides(Paths{"PICS\\A.BMP"}, slides, ShowFolder("")), (std::vector<int>{1}));
}

TEST(SlideDuplicates, ARowIsFoundAsItStandsToo) {
    const Paths paths{"A.BMP", "C:\\S\\B.BMP"};
    const Paths slides{"a.bmp", "b.bmp", "c.bmp", "C:\\s\\b.bmp"};
    EXPECT_EQ(RowsOfSlides(paths, slides, ShowFolder("C:\\s\\")), (std::vector<int>{0, 1, 3}));
}

class frmSlideDupTest : public ProgramFixture {
  protected:
    frmSlideDup& Load() {
        auto& dialog = app.Load<frmSlideDup>(
            module, Paths{"C:\\A.BMP", "C:\\B.BMP"},
            frmSlideDup::Editor{[this] { ++stages; },
                                [this](const Paths& paths) { selected.push_back(paths); }});
        dialog.Show();
        return dialog;
    }
    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }

    int stages = 0;
    std::vector<Paths> selected;
};

TEST_F(frmSlideDupTest, SaysWhatItIs) {
    const auto& dialog = Load();
    EXPECT_EQ(dialog.Caption.Get(), "Found Duplicate Slides");
    EXPECT_EQ(dialog.lblMsg.Caption.Get(), "The current slide show contains the following duplicate files:");
    EXPECT_EQ(dialog.List1.Texts(), (Paths{"C:\\A.BMP", "C:\\B.BMP"}));
    EXPECT_EQ(dialog.CheckSelectDup.Caption.Get(), "&Select all duplicates in View List.");
    EXPECT_EQ(dialog.CmdPreview.Caption.Get(), "&Preview");
    EXPECT_EQ(dialog.CmdPreview.ToolTip.Get(), "Click here to view the selected image.");
    EXPECT_EQ(dialog.CmdOK.Caption.Get(), "&OK");
    EXPECT_EQ(dialog.CmdOK.ToolTip.Get(), "Click here to continue.");
    EXPECT_FALSE(dialog.CheckSelectDup.Value.Get());
}

TEST_F(frmSlideDupTest, APreviewShowsTheImageOnTheStage) {
    auto& dialog = Load();
    module.SlideShowActive = true;
    Expect({.text = "Select an image to preview and then try again..."});
    Press(dialog.CmdPreview);
    EXPECT_EQ(stages, 0);
    EXPECT_TRUE(module.SlideShowActive);
    dialog.List1.ListIndex = 1;
    Press(dialog.CmdPreview);
    EXPECT_EQ(stages, 1);
    EXPECT_EQ(module.StageImage, "C:\\B.BMP");
    EXPECT_FALSE(module.SlideShowActive);
    const forms::BusyGuard busy(module.Screen());
    Press(dialog.CmdPreview);
    EXPECT_EQ(stages, 1);
}

TEST_F(frmSlideDupTest, ADoubleClickTellsThePath) {
    auto& dialog = Load();
    dialog.List1.ListIndex = 0;
    Expect({.text = "Complete path to selected file:\r\n\r\nC:\\A.BMP"});
    dialog.List1.Deliver(forms::DoubleClickEvent{});
}

TEST_F(frmSlideDupTest, TheCheckBoxDecidesAndIsKept) {
    Press(Load().CmdOK);
    EXPECT_TRUE(selected.empty());
    EXPECT_FALSE(module.config.SelectDuplicates);
    EXPECT_EQ(app.FormCount(), 0);
    auto& dialog = Load();
    dialog.CheckSelectDup.Deliver(forms::CheckEvent{true});
    ASSERT_TRUE(dialog.CheckSelectDup.Value.Get());
    Press(dialog.CmdOK);
    EXPECT_TRUE(module.config.SelectDuplicates);
    EXPECT_EQ(selected, (std::vector<Paths>{{"C:\\A.BMP", "C:\\B.BMP"}}));
    EXPECT_TRUE(Load().CheckSelectDup.Value.Get());
}

}  // namespace
}  // namespace tavrix::test
