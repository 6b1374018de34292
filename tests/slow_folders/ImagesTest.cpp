// Opening, saving and importing an image.

#include "editing/importing/OpenPaletteFrm.h"
#include "editing/importing/frmImportImage.h"
#include "editing/saving/ExportBmpFrm.h"
#include "editing/saving/SaveCopyFrm.h"
#include "slow_folders/SlowFoldersTest.h"
#include "viewer/OpenFrm.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class SlowOpenTest : public SlowFoldersTest {
  protected:
    /// The dialog on its way to C:\slow, since the image on show lies there.
    OpenFrm& Open(bool preview = false) {
        auto& view = Start(true);
        module.config.OpenShowPreview = preview;
        return Show<OpenFrm>(view);
    }
};

TEST_F(SlowOpenTest, TheImageOnShowIsSelectedWhenItHasCome) {
    auto& dialog = Open();
    EXPECT_EQ(dialog.Dir1.Path.Get(), Slow);
    EXPECT_EQ(Listed(dialog.File1), Names{});
    EXPECT_EQ(dialog.MousePointer, forms::MousePointer::ArrowHourglass);
    EXPECT_FALSE(module.Busy());
    Come();
    EXPECT_EQ(Listed(dialog.File1), (Names{"a.bmp", "b.bmp", "c.bmp"}));
    EXPECT_EQ(dialog.File1.FileName(), "b.bmp");
    EXPECT_EQ(dialog.MousePointer, forms::MousePointer::Default);
    EXPECT_FALSE(dialog.picPreview.Visible);
}

TEST_F(SlowOpenTest, AndPreviewedWhereThatIsWished) {
    auto& dialog = Open(true);
    EXPECT_TRUE(dialog.ChkPreview.Value);
    Come();
    Pass(2000);
    EXPECT_TRUE(dialog.picPreview.Visible);
    EXPECT_EQ(dialog.picPreview.ToolTip.Get(), "b.bmp");
    EXPECT_FALSE(module.Busy());
}

TEST_F(SlowOpenTest, OpenWaitsForTheFolder) {
    auto& dialog = Open();
    Press(dialog.CmdOpen);
    EXPECT_TRUE(dialog.Visible());
    ExpectQuestion("This image is already open.\r\n\r\nRead selected file again?", Answer::Yes);
    Come();
    EXPECT_EQ(app.Loaded<OpenFrm>(), nullptr);
    EXPECT_EQ(module.CurrentImage, "C:\\slow\\b.bmp");
}

TEST_F(SlowOpenTest, WhatWasPressedComesBeforeAPreviewWithoutDelay) {
    auto& view = Start(true);
    module.config.OpenShowPreview = true;
    module.config.OpenPreviewTimer = 1;
    auto& dialog = Show<OpenFrm>(view);
    Press(dialog.CmdOpen);
    ExpectQuestion("This image is already open.\r\n\r\nRead selected file again?", Answer::Yes);
    Come();
    EXPECT_EQ(app.Loaded<OpenFrm>(), nullptr);
}

TEST_F(SlowOpenTest, TheDialogThatWasToBeUsedAgainListsOtherFoldersToo) {
    auto& dialog = Open();
    platform.disks.PutFolder("C:\\empty");
    disk.also.insert("C:\\empty");
    Press(dialog.CmdOpen);
    ExpectQuestion("This image is already open.\r\n\r\nRead selected file again?", Answer::No);
    bool used = false;
    toolkit.OnModal("OpenFrm", [&] {
        used = true;
        dialog.Dir1.Path = "C:\\empty";
        Press(dialog.CmdOpen);
        ExpectTold("There are no files in the selected directory to open...");
        Come();
        dialog.Dir1.Path = Slow;
        Come();
        EXPECT_EQ(dialog.File1.ListCount(), 3);
        Press(dialog.CmdCancel);
    });
    Come();
    EXPECT_TRUE(used);
    EXPECT_EQ(app.Loaded<OpenFrm>(), nullptr);
}

TEST_F(SlowOpenTest, AnotherFolderForgetsTheOpen) {
    auto& dialog = Open();
    Press(dialog.CmdOpen);
    dialog.Dir1.Path = Quick;
    EXPECT_EQ(dialog.File1.ListCount(), 3);
    Come();
    EXPECT_TRUE(dialog.Visible());
    EXPECT_EQ(module.CurrentImage, "C:\\slow\\b.bmp");
    EXPECT_EQ(dialog.File1.ListIndex, -1) << "the selection was one of the folder that was left";
}

TEST_F(SlowOpenTest, PreviewsWait) {
    auto& dialog = Open();
    Press(dialog.CmdPreview);
    Come();
    EXPECT_TRUE(dialog.picPreview.Visible);
    EXPECT_EQ(dialog.picPreview.ToolTip.Get(), "b.bmp");
    dialog.File1.Refresh();
    static_cast<void>(dialog.File1.ListCount());
    Press(dialog.CmdNext);
    Come();
    EXPECT_EQ(dialog.picPreview.ToolTip.Get(), "a.bmp");
    dialog.File1.Refresh();
    static_cast<void>(dialog.File1.ListCount());
    Press(dialog.CmdPrevious);
    Come();
    EXPECT_EQ(dialog.File1.FileName(), "a.bmp");
}

TEST_F(SlowOpenTest, TheDeleteKeyFindsNothingToDelete) {
    auto& dialog = Open();
    ExpectTold("Unable to delete file by pressing the delete key, nothing is selected in the file list...");
    Key(dialog.File1, forms::KeyCode::Delete);
    Come();
    EXPECT_TRUE(IsThere("C:\\slow\\b.bmp"));
}

TEST_F(SlowOpenTest, ADroppedFileIsSelectedWhenItsFolderHasCome) {
    auto& view = Start();
    auto& dialog = Show<OpenFrm>(view);
    dialog.Deliver(forms::DropEvent{{"C:\\slow\\c.bmp"}});
    EXPECT_EQ(dialog.Dir1.Path.Get(), Slow);
    EXPECT_FALSE(dialog.picPreview.Visible);
    Come();
    EXPECT_EQ(dialog.File1.FileName(), "c.bmp");
    EXPECT_EQ(dialog.picPreview.ToolTip.Get(), "c.bmp");
    // One that is newer than the list is looked for once more.
    platform.pictures.SetPicture("C:\\slow\\d.bmp", PlainPicture(40, 30));
    dialog.Deliver(forms::DropEvent{{"C:\\slow\\d.bmp"}});
    Come();
    EXPECT_EQ(dialog.File1.FileName(), "d.bmp");
    EXPECT_EQ(dialog.picPreview.ToolTip.Get(), "d.bmp");
}

TEST_F(SlowOpenTest, AFileThatIsDroppedInTheMeantimeIsNotOpened) {
    auto& dialog = Open();
    Press(dialog.CmdOpen);
    dialog.Deliver(forms::DropEvent{{"C:\\slow\\c.bmp"}});
    Come();
    EXPECT_TRUE(dialog.Visible());
    EXPECT_EQ(dialog.File1.FileName(), "c.bmp");
    EXPECT_EQ(dialog.picPreview.ToolTip.Get(), "c.bmp");
    EXPECT_EQ(module.CurrentImage, "C:\\slow\\b.bmp");
}

TEST_F(SlowOpenTest, NorIsAnythingElseWhereTheFileIsNotThere) {
    auto& dialog = Open();
    Press(dialog.CmdOpen);
    dialog.Deliver(forms::DropEvent{{"C:\\slow\\z.bmp"}});
    ExpectTold("This file can't be opened by Tavrix, it may not be a valid image.",
               "Unable to show preview...");
    Come();
    Come();
    EXPECT_TRUE(dialog.Visible());
}

TEST_F(SlowOpenTest, ADroppedFileMayBeNewerThanTheLookThatIsUnderWay) {
    auto& view = Start();
    auto& dialog = Show<OpenFrm>(view);
    dialog.Deliver(forms::DropEvent{{"C:\\slow\\d.bmp"}});
    platform.pictures.SetPicture("C:\\slow\\d.bmp", PlainPicture(40, 30));
    Come();
    Come();
    EXPECT_EQ(dialog.File1.FileName(), "d.bmp");
}

TEST_F(SlowOpenTest, APreviewEndsWhereTheUserGoesToASlowFolder) {
    auto& view = Start();
    auto& dialog = Show<OpenFrm>(view);
    dialog.File1.ListIndex = 0;
    dialog.ChkPreview.Value = true;
    Pass(2000);
    ASSERT_EQ(dialog.picPreview.ToolTip.Get(), "a.bmp");
    toolkit.Post([&] { dialog.Dir1.Path = Slow; });
    Press(dialog.CmdPreview);
    EXPECT_EQ(dialog.Dir1.Path.Get(), Slow);
    EXPECT_FALSE(module.Busy());
    EXPECT_FALSE(dialog.lblMsg.Visible);
    Come();
}

TEST_F(SlowOpenTest, WhatCannotBePreviewedIsToldWhenTheFolderHasCome) {
    auto& view = Start();
    auto& dialog = Show<OpenFrm>(view);
    constexpr const char* text = "This file can't be opened by Tavrix, it may not be a valid image.";
    dialog.Deliver(forms::DropEvent{{"C:\\slow\\z.txt"}});
    ExpectTold(text, "Unable to show preview...");
    Come();
    Come();
    dialog.Dir1.Path = Quick;
    platform.disks.SetUnreadable(Slow, true);
    dialog.Deliver(forms::DropEvent{{"C:\\slow\\c.bmp"}});
    ExpectTold(text, "Unable to show preview...");
    Come();
    EXPECT_EQ(dialog.Dir1.Path.Get(), Quick);
}

TEST_F(SlowOpenTest, CancelDoesNotWait) {
    auto& dialog = Open();
    const forms::Milliseconds before = toolkit.Now();
    Press(dialog.CmdCancel);
    EXPECT_EQ(app.Loaded<OpenFrm>(), nullptr);
    EXPECT_EQ(toolkit.Now(), before);
    EXPECT_EQ(platform.files.CurrentFolder(), Slow);
    Come();
}

TEST_F(SlowOpenTest, TheDialogDoesNotWaitForTheRootOfTheDrive) {
    disk.also.insert("C:\\");
    auto& view = Start();
    platform.files.ChangeFolder(Quick);
    bool shown = false;
    const forms::Milliseconds before = toolkit.Now();
    toolkit.OnModal("OpenFrm", [&] {
        shown = true;
        EXPECT_LE(toolkit.Now() - before, forms::Milliseconds(5));
        Press(app.Loaded<OpenFrm>()->CmdCancel);
    });
    view.menu.mnuOpen.Deliver(forms::ClickEvent{});
    EXPECT_TRUE(shown);
}

class SlowImportTest : public SlowFoldersTest {};

TEST_F(SlowImportTest, ImportWaits) {
    Start();
    std::string file;
    auto& dialog = Show<frmImportImage>(module, file);
    dialog.Chooser.File1.Pattern = "*.tga";
    dialog.Chooser.Dir1.Path = Slow;
    Press(dialog.CmdImport);
    ExpectTold("There are no .TGA image files in the selected directory...");
    Come();
    platform.disks.PutFile("C:\\slow\\t.tga", "x");
    dialog.Chooser.File1.Refresh();
    EXPECT_EQ(dialog.Chooser.File1.ListCount(), 0);
    Come();
    dialog.Chooser.File1.ListIndex = 0;
    Press(dialog.CmdImport);
    EXPECT_EQ(file, "C:\\slow\\t.tga");
}

TEST_F(SlowImportTest, SoDoesAPalette) {
    Start();
    auto& dialog = Show<OpenPaletteFrm>(module);
    dialog.Chooser.Dir1.Path = Slow;
    Press(dialog.CmdOpen);
    ExpectTold("Select the file to get color palette from...");
    Come();
    EXPECT_EQ(dialog.Chooser.File1.ListCount(), 3);
}

class SlowSaveTest : public SlowFoldersTest {};

TEST_F(SlowSaveTest, ATypedNameIsTakenWhenTheFolderHasCome) {
    auto& view = Start(true);
    auto& dialog = Show<SaveCopyFrm>(view);
    EXPECT_EQ(dialog.Target.Dir1.Path.Get(), Slow);
    EXPECT_EQ(dialog.MousePointer, forms::MousePointer::ArrowHourglass);
    const forms::Milliseconds before = toolkit.Now();
    dialog.Target.txtFilename.Text = "a:b.bmp";
    ExpectTold("A filename may not contain a colon (:), unable to export image...");
    Press(dialog.CmdSave);  // which is told at once
    dialog.Target.txtFilename.Text = "copy.bmp";
    Press(dialog.CmdSave);
    EXPECT_EQ(toolkit.Now(), before);
    EXPECT_TRUE(dialog.Visible());
    ExpectQuestion("About to save the image as:\r\n\r\nC:\\slow\\copy.bmp\r\n\r\nIs this filename OK?",
                   Answer::Yes);
    Come();
    EXPECT_TRUE(IsThere("C:\\slow\\copy.bmp"));
    EXPECT_EQ(app.Loaded<SaveCopyFrm>(), nullptr);
}

TEST_F(SlowSaveTest, SoIsThatOfAnExport) {
    auto& view = Start(true);
    auto& dialog = Show<ExportBmpFrm>(view);
    dialog.Target.txtFilename.Text = "a:b";
    ExpectTold("A filename may not contain a colon (:), unable to export image...");
    Press(dialog.Buttons.CmdExport);  // which is told at once
    dialog.Target.txtFilename.Text = "copy";
    Press(dialog.Buttons.CmdExport);
    ExpectQuestion("About to export the image as:\r\n\r\nC:\\slow\\copy.BMP\r\n\r\nIs this filename OK?",
                   Answer::No);
    Come();
    EXPECT_TRUE(dialog.Visible());
}

TEST_F(SlowSaveTest, TheFoldersComeWhileTheNameIsTyped) {
    platform.disks.PutFolder("C:\\slow\\sub");
    auto& view = Start(true);
    auto& dialog = Show<ExportBmpFrm>(view);
    dialog.Target.txtFilename.Text = "half";
    Come();
    EXPECT_EQ(dialog.Target.Dir1.ListCount(), 1);
    EXPECT_EQ(dialog.Target.txtFilename.Text.Get(), "half");
    EXPECT_EQ(dialog.MousePointer, forms::MousePointer::Default);
}

}  // namespace
}  // namespace tavrix::test
