#include "editing/frame/Undo.h"

#include <string>

#include "EditingTest.h"
#include "editing/saving/ExportJpgFrm.h"
#include "editing/saving/SaveCopyFrm.h"

namespace tavrix::test {
namespace {

using forms::BoxIcon;
using forms::MousePointer;
using headless::Service;

class EachUndo : public EditingTest, public ::testing::WithParamInterface<FixedEdit> {};

INSTANTIATE_TEST_SUITE_P(Edits, EachUndo, ::testing::ValuesIn(FixedEdits),
                         [](const auto& edit) { return edit.param.name; });

TEST_P(EachUndo, BringsThePictureBackAndKeepsTheWorkingFile) {
    StartWithImage(40, 30);
    Choose(EntryOf(GetParam()));
    Choose(Menus().mnuUndo);
    ExpectEdited(Different(40, 30));
    ExpectUndo("Can't Undo", false);
    ExpectIdle();
    EXPECT_TRUE(SamePixels(*Decoded(ContentOf(Opened)), Different(40, 30)));
}

TEST_P(EachUndo, TakesBackTheSecondEditAlone) {
    StartWithImage(40, 30);
    Choose(Menus().mnu90CCW);
    Choose(EntryOf(GetParam()));
    Choose(Menus().mnuUndo);
    ExpectEdited(Turned(Different(40, 30), QuarterAngle, true));
}

class Undo : public EditingTest {
  protected:
    void StartWithAnEdit() {
        StartWithImage(40, 30);
        Choose(Menus().mnuFlipVertically);
    }
    void ExpectRefused(const std::string& description) {
        Expect({.text = NotUndone + description + "...", .icon = BoxIcon::Exclamation});
        Choose(Menus().mnuUndo);
        ExpectUndo("&Undo Flip Vertically", true);
        ExpectIdle();
    }
};

TEST_F(Undo, ComesOnceForAnEdit) {
    StartWithAnEdit();
    Choose(Menus().mnuUndo);
    const int yields = toolkit.Yields();
    Choose(Menus().mnuUndo);
    EXPECT_EQ(toolkit.Yields(), yields);
    ExpectEdited(Different(40, 30));

    Choose(Menus().mnuFlipHorizontal);
    ExpectUndo("&Undo Flip Horizontally", true);
    Choose(Menus().mnuUndo);
    ExpectEdited(Different(40, 30));
}

TEST_F(Undo, WaitsForWhatIsRunning) {
    StartWithAnEdit();
    module.Screen().MousePointer = MousePointer::Hourglass;
    Choose(Menus().mnuUndo);
    EXPECT_TRUE(module.Busy());
    ExpectEdited(Mirrored(Different(40, 30), false));
    ExpectUndo("&Undo Flip Vertically", true);
}

TEST_F(Undo, RunsUnderTheHourglass) {
    StartWithAnEdit();
    int times = 0;
    WhenMessagesRun([&] {
        if (++times > 1 && !module.Busy()) return;
        EXPECT_EQ(toolkit.ScreenPointer(), MousePointer::Hourglass);
        Choose(Menus().mnuFlipHorizontal);
        Choose(Menus().mnuUndo);
    });
    Choose(Menus().mnuUndo);
    EXPECT_GE(times, 2);
    ExpectEdited(Different(40, 30));
}

TEST_F(Undo, ThatCannotBeReadStaysOnOffer) {
    StartWithAnEdit();
    platform.faults.FailAlways(Service::Pictures, "Load", ErrorNumber::PermissionDenied);
    ExpectRefused("Permission denied");
    ExpectEdited(Mirrored(Different(40, 30), false));
    platform.faults.Clear();
    Choose(Menus().mnuUndo);
    ExpectEdited(Different(40, 30));
    ExpectUndo("Can't Undo", false);
}

TEST_F(Undo, WithoutItsFileStaysOnOffer) {
    StartWithAnEdit();
    platform.disks.Remove(Undoing);
    ExpectRefused("File not found");
    ExpectEdited(Mirrored(Different(40, 30), false));
}

TEST_F(Undo, OfWhatIsNoPictureStaysOnOffer) {
    StartWithAnEdit();
    platform.disks.PutFile(Undoing, "no picture at all");
    ExpectRefused("Invalid picture");
    ExpectEdited(Mirrored(Different(40, 30), false));
}

TEST_F(Undo, ThatCannotBeWrittenStaysOnOffer) {
    StartWithAnEdit();
    const std::string written = ContentOf(Working);
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    ExpectRefused("Disk full");
    EXPECT_EQ(ContentOf(Working), written);
    EXPECT_EQ(module.CurrentImage, Working);
    platform.faults.Clear();
    Choose(Menus().mnuUndo);
    ExpectEdited(Different(40, 30));
}

TEST_F(Undo, ThatIsOfferedForNothingSaysSo) {
    StartWithAnEdit();
    platform.disks.Remove(Working);
    platform.disks.Remove(Undoing);
    Choose(Menus().mnuFlipHorizontal);
    ExpectUndo("Can't Undo", true);
    Expect({.text = std::string(NotUndone) + "File not found...", .icon = BoxIcon::Exclamation});
    Choose(Menus().mnuUndo);
    ExpectUndo("Can't Undo", true);
}

TEST_F(Undo, LaysTheWindowOutAndScrollsHome) {
    StartWithImage(900, 800);
    ASSERT_TRUE(View().hsbPict.Visible);
    Choose(Menus().mnu50Smaller);
    View().Form_Resize();
    ASSERT_FALSE(View().hsbPict.Visible);
    Choose(Menus().mnuUndo);
    EXPECT_TRUE(View().hsbPict.Visible);
    EXPECT_TRUE(View().vsbPict.Visible);
    EXPECT_EQ(View().hsbPict.Value.Get(), 0);
    EXPECT_EQ(View().vsbPict.Value.Get(), 0);
    ExpectShown(Different(900, 800));

    Choose(Menus().mnuFlipVertically);
    View().hsbPict.Value = 300;
    View().vsbPict.Value = 450;
    Choose(Menus().mnuUndo);
    EXPECT_EQ(View().hsbPict.Value.Get(), 0);
    EXPECT_EQ(View().vsbPict.Value.Get(), 0);
    EXPECT_EQ(View().MainImage.Left.Get(), 0);
    EXPECT_EQ(View().MainImage.Top.Get(), 0);
}

TEST_F(Undo, LeavesTheSelectionsFlagAlone) {
    StartWithAnEdit();
    Select(3, 4, 20, 15);
    Choose(Menus().mnuUndo);
    EXPECT_TRUE(View().selection.SelectionShown);
    ExpectEdited(Different(40, 30));
}

TEST_F(Undo, LeavesTheImageUnsaved) {
    StartWithAnEdit();
    Choose(Menus().mnuUndo);
    ExpectDiscard("Discard changes and exit?", forms::Answer::No);
    EXPECT_FALSE(Close());
}

// An undo of what is not the working file by now commits as an edit does.

TEST_F(Undo, OfARefusedEditLeavesTheOpenedFileAlone) {
    const std::string content = platform.pictures.SetPicture("C:\\p\\x.gif", PictureOf(Different(20, 20)));
    ASSERT_TRUE(Start("C:\\p\\x.gif"));
    ASSERT_TRUE(Menus().mnuAnimatedGIF.Enabled);
    Expect({.text = "You may not make the current image any smaller..."});
    Choose(Menus().mnu25Smaller);
    ExpectUndo("&Undo Resize 25% Smaller", true);
    Choose(Menus().mnuUndo);
    ExpectUndo("Can't Undo", false);
    EXPECT_EQ(ContentOf("C:\\p\\x.gif"), content);
    ExpectEdited(Different(20, 20));
    EXPECT_FALSE(Menus().mnuAnimatedGIF.Enabled) << "the image is a bitmap now";
    ExpectIdle();
    ExpectDiscard("Discard changes and exit?", forms::Answer::No);
    EXPECT_FALSE(Close());
}

TEST_F(Undo, OfARefusedEditLeavesAFileAloneThatHasChangedMeanwhile) {
    StartWithImage(20, 20);
    Expect({.text = "You may not make the current image any smaller..."});
    Choose(Menus().mnu25Smaller);
    const std::string changed = BitmapOf(Mirrored(Different(20, 20), true));
    platform.disks.PutFile(Opened, changed);
    Choose(Menus().mnuUndo);
    EXPECT_EQ(ContentOf(Opened), changed);
    ExpectEdited(Different(20, 20));
}

TEST_F(Undo, OfACanceledPasteLeavesTheOpenedFileAlone) {
    StartWithImage(40, 30);
    const std::string changed = BitmapOf(Mirrored(Different(40, 30), true));
    platform.clipboard.formats = {ClipboardFormat::Bitmap};
    platform.clipboard.picture = PictureOf(Different(10, 10));
    Select(3, 4, 20, 15);
    Expect({.text = "Stretch clipboard data to fit the selected area?",
            .icon = BoxIcon::Question,
            .buttons = forms::BoxButtons::YesNoCancel,
            .reply = forms::Answer::Cancel});
    Choose(Menus().mnuPaste);
    platform.disks.PutFile(Opened, changed);
    Choose(Menus().mnuUndo);
    EXPECT_EQ(ContentOf(Opened), changed);
    ExpectEdited(Different(40, 30));
    ExpectUndo("Can't Undo", false);
}

/// An edit that was written to a file of the user's, under this name, by this entry's dialog.
struct Kept {
    const char* name;
    const char* path;
    void (*keep)(forms::Application& app);
    const char* dialog;
    forms::Menu MainMenu::*entry;
};

void PrintTo(const Kept& kept, std::ostream* out) {
    *out << kept.name;
}

class UndoOfKept : public Undo, public ::testing::WithParamInterface<Kept> {
  protected:
    /// Makes an edit and keeps it.
    void KeepAnEdit() {
        StartWithAnEdit();
        platform.disks.PutFolder("C:\\p");
        toolkit.OnModal(GetParam().dialog, [this] { GetParam().keep(app); });
        Expect({.text = About() + "\r\n\r\n" + GetParam().path + "\r\n\r\nIs this filename OK?",
                .icon = BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = forms::Answer::Yes});
        Choose(Menus().*GetParam().entry);
        ASSERT_EQ(module.CurrentImage, GetParam().path);
        ExpectUndo("&Undo Flip Vertically", true);
        ASSERT_TRUE(platform.disks.Exists(GetParam().path));
    }
    static std::string About() {
        return GetParam().entry == &MainMenu::mnuSaveCopy ? "About to save the image as:"
                                                          : "About to export the image as:";
    }
};

INSTANTIATE_TEST_SUITE_P(Ways, UndoOfKept,
                         ::testing::Values(Kept{"save copy", "C:\\p\\kept.bmp",
                                                [](forms::Application& app) {
                                                    auto& dialog = *app.Loaded<SaveCopyFrm>();
                                                    dialog.Target.Lists.GoTo("C:\\p");
                                                    dialog.Target.txtFilename.Text = "kept.bmp";
                                                    dialog.CmdSave.Deliver(forms::ClickEvent{});
                                                },
                                                "SaveCopyFrm", &MainMenu::mnuSaveCopy},
                                           Kept{"export", "C:\\p\\kept.JPG",
                                                [](forms::Application& app) {
                                                    auto& dialog = *app.Loaded<ExportJpgFrm>();
                                                    dialog.Target.Lists.GoTo("C:\\p");
                                                    dialog.Target.txtFilename.Text = "kept";
                                                    dialog.Buttons.CmdExport.Deliver(forms::ClickEvent{});
                                                },
                                                "ExportJpgFrm", &MainMenu::mnuExportJPG}),
                         [](const auto& way) { return way.index == 0 ? "SaveCopy" : "Export"; });

TEST_P(UndoOfKept, LeavesTheFileThatWasWrittenAlone) {
    KeepAnEdit();
    const std::string content = ContentOf(GetParam().path);
    Choose(Menus().mnuUndo);
    EXPECT_EQ(ContentOf(GetParam().path), content);
    ExpectEdited(Different(40, 30));
    ExpectUndo("Can't Undo", false);
    ExpectIdle();
    ExpectDiscard("Discard changes and exit?", forms::Answer::No);
    EXPECT_FALSE(Close());
}

TEST_P(UndoOfKept, ThatCannotBeWrittenLeavesTheImageThatItWas) {
    KeepAnEdit();
    const std::string content = ContentOf(GetParam().path);
    const std::string working = ContentOf(Working);
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    ExpectRefused("Disk full");
    EXPECT_EQ(module.CurrentImage, GetParam().path);
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [" + module.CurrentImage + "]");
    EXPECT_EQ(ContentOf(GetParam().path), content);
    EXPECT_EQ(ContentOf(Working), working);
    platform.faults.Clear();
    Choose(Menus().mnuUndo);
    ExpectEdited(Different(40, 30));
}

TEST_F(Undo, ThatCannotBeWrittenShowsWhatTheFileHolds) {
    StartWithAnEdit();
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    ExpectRefused("Disk full");
    ExpectShown(Mirrored(Different(40, 30), false));
}

TEST_F(Undo, GoesBesideTheProgramWhereTheWorkingFileIsReadOnly) {
    StartWithImage(20, 20);
    platform.disks.PutFile(Working, "somebody else's");
    platform.disks.SetReadOnly(Working, true);
    Expect({.text = "You may not make the current image any smaller..."});
    Choose(Menus().mnu25Smaller);
    Choose(Menus().mnuUndo);
    EXPECT_EQ(ContentOf(Working), "somebody else's");
    ExpectEdited(Different(20, 20), WorkingBeside);
}

TEST_F(Undo, LayersATransparentPictureOverWhite) {
    Surface clear(40, 30);
    clear.Row(4)[3] = OpaquePixel(1, 2, 3);
    Surface white = Cleared(40, 30);
    white.Row(4)[3] = OpaquePixel(1, 2, 3);
    Picture picture = PictureOf(std::move(clear));
    picture.transparent = true;
    platform.pictures.SetPicture("C:\\p\\x.gif", picture);
    ASSERT_TRUE(Start("C:\\p\\x.gif"));
    Choose(Menus().mnuFlipVertically);
    Choose(Menus().mnuUndo);
    ExpectEdited(white);
}

}  // namespace
}  // namespace tavrix::test
