#include "editing/frame/EditFrame.h"

#include <string>

#include "EditingTest.h"
#include "core/UnsavedImage.h"
#include "editing/frame/WorkingFile.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxIcon;
using forms::MousePointer;
using headless::Service;

class EachEdit : public EditingTest, public ::testing::WithParamInterface<FixedEdit> {
  protected:
    forms::Menu& TheEntry() { return EntryOf(GetParam()); }
    Surface ExpectedOf(const Surface& before) { return GetParam().expected(before); }

    /// The edit fails to write, with this text of the system.
    void ExpectLoss(const std::string& description) {
        Expect({.text = NotWritten + description + "...", .icon = BoxIcon::Stop, .whileOpen = [this] {
                    EXPECT_EQ(toolkit.ScreenPointer(), MousePointer::Default);
                }});
        Choose(TheEntry());
        ExpectEmptyView();
        ExpectIdle();
        EXPECT_FALSE(Menus().mnuAnimatedGIF.Enabled);
    }
};

INSTANTIATE_TEST_SUITE_P(Edits, EachEdit, ::testing::ValuesIn(FixedEdits),
                         [](const auto& edit) { return edit.param.name; });

TEST_P(EachEdit, EndsOnTheWorkingFileWithItsUndoOnOffer) {
    StartWithImage(40, 30);
    ExpectUndo("Can't Undo", false);
    const std::string before = ContentOf(Opened);
    Choose(TheEntry());
    ExpectEdited(ExpectedOf(Different(40, 30)));
    EXPECT_TRUE(IsUnsavedImage(module));
    ExpectUndo(GetParam().undoCaption, true);
    EXPECT_EQ(ContentOf(Undoing), before);
    EXPECT_EQ(ContentOf(Opened), before);
    ExpectNothingLeft();
}

TEST_P(EachEdit, GivesThePixelsThatItIsDefinedBy) {
    StartWithImage(64, 64);
    for (const auto& [width, height] :
         {std::pair{64, 64}, {41, 32}, {33, 57}, {100, 50}, {17, 90}, {200, 3}, {1, 40}, {35, 36}}) {
        SCOPED_TRACE(std::to_string(width) + " by " + std::to_string(height));
        platform.disks.PutFile("C:\\p\\next.bmp", BitmapOf(Different(width, height)));
        module.CurrentImage.clear();
        View().Deliver(forms::DropEvent{{"C:\\p\\next.bmp"}});
        Choose(TheEntry());
        ExpectEdited(ExpectedOf(Different(width, height)));
    }
}

TEST_P(EachEdit, WorksOnWhatTheEditBeforeItLeft) {
    StartWithImage(64, 96);
    for (const FixedEdit& before : FixedEdits) {
        SCOPED_TRACE(before.name);
        module.CurrentImage.clear();
        View().Deliver(forms::DropEvent{{Opened}});
        Choose(EntryOf(before));
        Choose(TheEntry());
        ExpectEdited(ExpectedOf(before.expected(Different(64, 96))));
        ExpectUndo(GetParam().undoCaption, true);
    }
}

TEST_P(EachEdit, DoesNothingWithoutAnImage) {
    ASSERT_TRUE(Start());
    const auto files = platform.disks.AllFiles();
    const int yields = toolkit.Yields();
    TheEntry().Click();
    EXPECT_TRUE(ShowsDefaultPicture());
    EXPECT_EQ(module.CurrentImage, "");
    EXPECT_EQ(View().Caption.Get(), "Tavrix");
    EXPECT_EQ(platform.disks.AllFiles(), files);
    EXPECT_EQ(toolkit.Yields(), yields);
    ExpectUndo("Can't Undo", false);
}

TEST_P(EachEdit, DoesNothingUnderAnotherPointer) {
    StartWithImage(40, 30);
    const auto files = platform.disks.AllFiles();
    module.Screen().MousePointer = MousePointer::Hourglass;
    Choose(TheEntry());
    EXPECT_EQ(module.Screen().MousePointer.Get(), MousePointer::Hourglass);
    EXPECT_EQ(module.CurrentImage, Opened);
    EXPECT_EQ(platform.disks.AllFiles(), files);
    ExpectShown(Different(40, 30));
    ExpectUndo("Can't Undo", false);
}

TEST_P(EachEdit, RunsUnderTheHourglassAndNoEntryWorksMeanwhile) {
    StartWithImage(40, 30);
    int times = 0;
    WhenMessagesRun([&] {
        if (++times > 1 && !module.Busy()) return;  // after the edit
        EXPECT_EQ(toolkit.ScreenPointer(), MousePointer::Hourglass);
        for (const FixedEdit& edit : FixedEdits)
            Choose(EntryOf(edit));
        for (forms::Menu* entry : {&Menus().mnuUndo, &Menus().mnuClear, &Menus().mnuReloadImage,
                                   &Menus().mnuOpen, &Menus().mnuExit, &Menus().mnuLast1})
            Choose(*entry);
    });
    EXPECT_FALSE(Choose(TheEntry()));
    EXPECT_GE(times, 4);
    ExpectEdited(ExpectedOf(Different(40, 30)));
    ExpectUndo(GetParam().undoCaption, true);
    EXPECT_TRUE(SamePixels(*Decoded(ContentOf(Undoing)), Different(40, 30)));
    ExpectNothingLeft();
}

TEST_P(EachEdit, WipesTheSelectionFirst) {
    StartWithImage(40, 30);
    Select(5, 6, 30, 20);
    EXPECT_FALSE(SamePixels(Shown(), Different(40, 30)));
    Choose(TheEntry());
    EXPECT_FALSE(View().selection.SelectionShown);
    ExpectEdited(ExpectedOf(Different(40, 30)));
}

TEST_P(EachEdit, MakesTheUndoCopyBeforeItWipesTheSelection) {
    StartWithImage(40, 30);
    Select(5, 6, 30, 20);
    bool copied = false;
    for (int call = 1; call <= 5; ++call) {
        platform.faults.AtNth(Service::Files, call, [&] {
            if (!platform.faults.Log().back().starts_with("Files.Copy ")) return;
            copied = true;
            EXPECT_EQ(Menus().mnuUndo.Caption.Get(), GetParam().undoCaption);
            EXPECT_TRUE(View().selection.SelectionShown);
            EXPECT_TRUE(View().selection.Seen());
        });
    }
    Choose(TheEntry());
    EXPECT_TRUE(copied);
}

TEST_P(EachEdit, GoesOnWithoutAnUndoCopy) {
    StartWithImage(40, 30);
    platform.disks.Remove(Opened);
    Choose(TheEntry());
    ExpectUndo("Can't Undo", false);
    ExpectEdited(ExpectedOf(Different(40, 30)));
    EXPECT_FALSE(platform.disks.Exists(Undoing));
}

TEST_P(EachEdit, LeavesAnEntryEnabledThatHasNothingToUndo) {
    StartWithImage(40, 30);
    Choose(Menus().mnuFlipHorizontal);
    platform.faults.FailAlways(Service::Files, "Copy", ErrorNumber::DiskFull);
    Choose(TheEntry());
    ExpectUndo("Can't Undo", true);
    ExpectEdited(ExpectedOf(Mirrored(Different(40, 30), true)));
}

TEST_P(EachEdit, MovesBesideTheProgramWhenTheWorkingFileIsReadOnly) {
    platform.disks.PutFile(Working, "somebody else's");
    platform.disks.SetReadOnly(Working, true);
    StartWithImage(40, 30);
    Choose(TheEntry());
    ExpectEdited(ExpectedOf(Different(40, 30)), WorkingBeside);
    EXPECT_TRUE(IsUnsavedImage(module));
    EXPECT_EQ(ContentOf(Working), "somebody else's");
    ExpectUndo(GetParam().undoCaption, true);
}

TEST_P(EachEdit, LosesThePictureWhenItCannotBeWritten) {
    StartWithImage(40, 30);
    const std::string before = ContentOf(Opened);
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    ExpectLoss("Disk full");
    platform.faults.Clear();
    EXPECT_EQ(ContentOf(Opened), before);
    EXPECT_FALSE(platform.disks.Exists(Working));

    // The picture is opened and edited again.
    View().Deliver(forms::DropEvent{{Opened}});
    ExpectUndo("Can't Undo", false);
    Choose(TheEntry());
    ExpectEdited(ExpectedOf(Different(40, 30)));
}

TEST_P(EachEdit, LosesThePictureWhenBothWorkingFilesAreReadOnly) {
    for (const char* path : {Working, WorkingBeside}) {
        platform.disks.PutFile(path, "old");
        platform.disks.SetReadOnly(path, true);
    }
    StartWithImage(40, 30);
    ExpectLoss("Permission denied");
    EXPECT_EQ(ContentOf(Working), "old");
    EXPECT_EQ(ContentOf(WorkingBeside), "old");
}

TEST_P(EachEdit, EndsAnAnimation) {
    platform.pictures.SetPicture("C:\\p\\x.gif", PictureOf(Different(40, 30)));
    ASSERT_TRUE(Start("C:\\p\\x.gif"));
    ASSERT_TRUE(Menus().mnuAnimatedGIF.Enabled);
    Choose(TheEntry());
    EXPECT_FALSE(Menus().mnuAnimatedGIF.Enabled);
    Choose(Menus().mnuUndo);
    EXPECT_FALSE(Menus().mnuAnimatedGIF.Enabled);
}

TEST_P(EachEdit, FillsWithWhiteWhateverTheDesktopLooksLike) {
    Setting("BackgroundColor", "2");
    Surface clear(40, 30);
    clear.Row(4)[3] = OpaquePixel(1, 2, 3);
    Picture picture = PictureOf(clear.Clone());
    picture.transparent = true;
    platform.pictures.SetPicture("C:\\p\\x.gif", picture);
    ASSERT_TRUE(Start("C:\\p\\x.gif"));
    ASSERT_EQ(View().picFrame.BackColor.Get(), ButtonFace);

    Surface white = Cleared(40, 30);
    white.Row(4)[3] = OpaquePixel(1, 2, 3);
    Choose(TheEntry());
    ExpectEdited(ExpectedOf(white));
    const auto written = Decoded(ContentOf(Working));
    ASSERT_TRUE(written);
    for (const Pixel pixel : written->Pixels())
        ASSERT_NE(pixel, headless::HeadlessToolkit::ButtonFacePixel);
}

class EditFrame : public EditingTest {};

TEST_F(EditFrame, TheSecondEditTakesTheWorkingFileForItsUndo) {
    StartWithImage(40, 30);
    Choose(Menus().mnu90CW);
    const std::string first = ContentOf(Working);
    Choose(Menus().mnuFlipVertically);
    EXPECT_EQ(ContentOf(Undoing), first);
    ExpectUndo("&Undo Flip Vertically", true);
}

TEST_F(EditFrame, TheUndoFileKeepsTheFormatOfTheImage) {
    const std::string content = platform.pictures.SetPicture("C:\\p\\x.jpg", PictureOf(Different(40, 30)));
    ASSERT_TRUE(Start("C:\\p\\x.jpg"));
    Choose(Menus().mnu180Degrees);
    EXPECT_EQ(ContentOf(Undoing), content);
}

TEST_F(EditFrame, WritesBesideTheProgramWithoutATemporaryFolder) {
    StartWithImage(40, 30);
    platform.faults.FailAlways(Service::Files, "Folder", ErrorNumber::PathNotFound);
    Choose(Menus().mnuFlipVertically);
    ExpectEdited(Mirrored(Different(40, 30), false), WorkingBeside);
    EXPECT_TRUE(platform.disks.Exists("C:\\Tavrix\\~undo.tmp"));
    EXPECT_TRUE(IsUnsavedImage(module));
}

TEST_F(EditFrame, ReloadingAnEditedImageShowsTheWorkingFile) {
    StartWithImage(40, 30);
    Choose(Menus().mnuFlipVertically);
    Choose(Menus().mnuReloadImage);
    ExpectEdited(Mirrored(Different(40, 30), false));
    Choose(Menus().mnuFlipVertically);
    ExpectEdited(Different(40, 30));
}

TEST_F(EditFrame, ClosingIsAskedAboutAndNoChangesNothing) {
    StartWithImage(40, 30);
    Choose(Menus().mnu90CW);
    const auto files = platform.disks.AllFiles();
    ExpectDiscard("Discard changes and exit?", Answer::No);
    EXPECT_FALSE(Close());
    EXPECT_EQ(platform.disks.AllFiles(), files);
    ExpectUndo("&Undo Rotate 90° CW", true);
    ExpectEdited(Turned(Different(40, 30), -QuarterAngle, true));
}

TEST_F(EditFrame, ClosingRemovesWhatTheEditsLeft) {
    Setting("DeleteUntitled", "True");
    platform.disks.PutFile(WorkingBeside, "of another time");
    StartWithImage(40, 30);
    const std::string before = ContentOf(Opened);
    Choose(Menus().mnu90CW);
    ExpectDiscard("Discard changes and exit?", Answer::Yes);
    EXPECT_TRUE(Close());
    EXPECT_FALSE(platform.disks.Exists(Undoing));
    EXPECT_FALSE(platform.disks.Exists(Working));
    EXPECT_FALSE(platform.disks.Exists(WorkingBeside));
    EXPECT_EQ(ContentOf(Opened), before);
}

TEST_F(EditFrame, ClosingKeepsTheWorkingFileWhenItIsToBeKept) {
    Setting("DeleteUntitled", "False");
    StartWithImage(40, 30);
    Choose(Menus().mnu90CW);
    const std::string written = ContentOf(Working);
    ExpectDiscard("Discard changes and exit?", Answer::Yes);
    EXPECT_TRUE(Close());
    EXPECT_FALSE(platform.disks.Exists(Undoing));
    EXPECT_EQ(ContentOf(Working), written);
    EXPECT_NE(Saved("LastOpenedFile"), Working);
}

TEST_F(EditFrame, AnotherImageIsAskedAboutOnceItIsUnsaved) {
    StartWithImage(40, 30);
    Choose(Menus().mnuFlipVertically);
    ExpectDiscard("Discard changes and continue?", Answer::No);
    View().Deliver(forms::DropEvent{{Opened}});
    ExpectIdle();
    ExpectEdited(Mirrored(Different(40, 30), false));
    ExpectUndo("&Undo Flip Vertically", true);

    ExpectDiscard("Discard changes and continue?", Answer::Yes);
    View().Deliver(forms::DropEvent{{Opened}});
    EXPECT_EQ(module.CurrentImage, Opened);
    ExpectUndo("Can't Undo", false);
}

TEST_F(EditFrame, AFailedWriteIsToldInTheWordsOfTheCaller) {
    StartWithImage(40, 30);
    Choose(Menus().mnuFlipVertically);
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::PathNotFound);
    Expect({.text = "In other words.\r\n\r\nPath not found...", .icon = BoxIcon::Stop});
    EXPECT_FALSE(WriteWorkingFile(View(), "In other words."));
    ExpectEmptyView();
    ExpectIdle();
}

TEST_F(EditFrame, TheWindowMayCloseInTheMiddleOfAnEdit) {
    StartWithImage(40, 30);
    const std::string before = ContentOf(Opened);
    toolkit.AtYield(5, [this] { View().Deliver(forms::CloseEvent{}); });
    EXPECT_TRUE(Choose(Menus().mnu90CW));
    EXPECT_TRUE(platform.process.ended);
    EXPECT_EQ(ContentOf(Opened), before);
}

}  // namespace
}  // namespace tavrix::test
