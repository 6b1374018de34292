#include "editing/importing/OpenPaletteFrm.h"

#include "editing/SavingTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class OpenPaletteFrmTest : public SavingTest {
  protected:
    void InPalette(const std::function<void(OpenPaletteFrm&)>& action) {
        InDialog<OpenPaletteFrm>(View().menu.mnuImportPalette, "OpenPaletteFrm", action);
    }
};

TEST_F(OpenPaletteFrmTest, TextsAreAsTold) {
    ASSERT_TRUE(Start(Gif));
    InPalette([](OpenPaletteFrm& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Import Color Palette");
        EXPECT_EQ(dialog.Chooser.File1.Pattern.Get(), "*.dib;*.bmp;*.gif");
        EXPECT_EQ(dialog.HelpContext, HelpContext::Import);
        EXPECT_EQ(dialog.CmdOpen.Caption.Get(), "&Open");
        EXPECT_EQ(dialog.CmdCancel.Caption.Get(), "&Cancel");
        EXPECT_TRUE(dialog.CmdOpen.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        ExpectOwnLetters(dialog, 6);
    });
}

TEST_F(OpenPaletteFrmTest, NoPaletteIsEverRead) {
    ASSERT_TRUE(Start(Gif));
    const Picture before = View().MainImage.Picture;
    InPalette([this](OpenPaletteFrm& dialog) {
        ExpectTold("Select the file to get color palette from...");
        Press(dialog.CmdOpen);
        dialog.Chooser.File1.Deliver(forms::RowEvent{0});
        for (int time = 0; time < 2; ++time) {
            ExpectTold("Feature has not been finished...");
            if (time == 0)
                Press(dialog.CmdOpen);
            else
                dialog.Chooser.File1.Deliver(forms::DoubleClickEvent{});
        }
        EXPECT_TRUE(dialog.Visible());
        platform.disks.Remove(Gif);
        ExpectStop("Unable to get color palette from the selected file.");
        Press(dialog.CmdOpen);
        dialog.Chooser.Dir1.Path = "C:\\q";
        ExpectTold("There are no files in the selected directory to get a color palette from...");
        Press(dialog.CmdOpen);
        Press(dialog.CmdCancel);
    });
    ExpectCurrent(Gif);
    EXPECT_EQ(View().MainImage.Picture.Get(), before);
    EXPECT_EQ(Asked("Files.Open"), 0);
}

TEST_F(OpenPaletteFrmTest, AnUnsavedImageIsAskedForFirst) {
    ASSERT_TRUE(Start(Gif));
    MakeUnsaved(8, 8, GifColour);
    ExpectDiscard(Answer::No);
    EXPECT_FALSE(Choose(View().menu.mnuImportPalette));
    EXPECT_EQ(app.FormCount(), 1);
    ExpectIdle();
    ExpectDiscard(Answer::Yes);
    InPalette([](OpenPaletteFrm&) {});
    ExpectCurrent(Working);
}

TEST_F(OpenPaletteFrmTest, NeedsAnImage) {
    ASSERT_TRUE(Start());
    EXPECT_FALSE(View().menu.mnuImportPalette.Enabled);
    EXPECT_FALSE(Choose(View().menu.mnuImportPalette));
    EXPECT_EQ(app.FormCount(), 1);
}

TEST_F(OpenPaletteFrmTest, TheMainViewLeavesTheTopmostBandMeanwhile) {
    ASSERT_TRUE(Start(Gif));
    module.config.TopMostWindow = true;
    View().SetTopmost(true);
    InPalette([this](OpenPaletteFrm&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
}

}  // namespace
}  // namespace tavrix::test
