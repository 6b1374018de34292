// The import commands behind their dialog, and the temporary file.

#include "core/UnsavedImage.h"
#include "editing/ImportTest.h"
#include "editing/saving/ExportJpgFrm.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;

class ImportingTest : public ImportTest {
  protected:
    static constexpr const char* NotImported = "Unable to import selected file.\r\n\r\n";
    static constexpr const char* NotWritten = "Unable to write imported image to a temporary file.\r\n\r\n";
    static constexpr const char* OpenAlready =
        "The temporary image file that was last created is already open...";

    /// The user draws a selection, in pixels.
    void Select(int x1, int y1, int x2, int y2) {
        using forms::MouseAction;
        const int shift = forms::ShiftMask::Shift;
        const int left = forms::MouseButton::Left;
        Mouse(View().MainImage, MouseAction::Down, left, shift, x1, y1);
        Mouse(View().MainImage, MouseAction::Move, left, shift, x2, y2);
        Mouse(View().MainImage, MouseAction::Up, left, shift, x2, y2);
        ASSERT_TRUE(View().selection.SelectionShown);
    }
    void ExpectBlackButTheFirst() {
        const Picture image = View().MainImage.Image();
        const auto pixels = image.pixels->Whole().Pixels();
        EXPECT_TRUE(std::ranges::all_of(pixels.subspan(1), [](Pixel pixel) { return pixel == Black; }));
    }
};

TEST_F(ImportingTest, ATgaFileBecomesAnUnsavedImage) {
    ASSERT_TRUE(Start());
    ImportFirst(View().menu.mnuImportTGA);
    ExpectImported(Working, 5, 4, White);
    EXPECT_TRUE(IsUnsavedImage(module));
    EXPECT_EQ(Loaded(Working).format, "bmp");
    EXPECT_EQ(module.config.Recent[0], "");
}

TEST_F(ImportingTest, APcxFileBecomesAnUnsavedImage) {
    ASSERT_TRUE(Start(Gif));
    View().menu.mnuUndo.Enabled = true;
    View().menu.mnuUndo.Caption = "&Undo Crop";
    ImportFirst(View().menu.mnuImportPCX);
    ExpectImported(Working, 4, 1, PcxColour);
    EXPECT_EQ(Content(Gif), gifBytes);
}

TEST_F(ImportingTest, ADoubleClickImports) {
    ASSERT_TRUE(Start(Gif));
    InTga([](frmImportImage& dialog) {
        dialog.Chooser.File1.Deliver(forms::RowEvent{0});
        dialog.Chooser.File1.Deliver(forms::DoubleClickEvent{});
        EXPECT_TRUE(dialog.Unloaded());
    });
    ExpectImported(Working, 5, 4, White);
}

TEST_F(ImportingTest, FromTheRootOfAnotherDrive) {
    platform.disks.PutFile("D:\\w.tga", PlainTga(7, 3, White, Black));
    ASSERT_TRUE(Start(Gif));
    InTga([](frmImportImage& dialog) {
        dialog.Chooser.Drive1.Drive = "D:";
        dialog.Chooser.File1.Deliver(forms::RowEvent{0});
        Press(dialog.CmdImport);
    });
    ExpectImported(Working, 7, 3, White);
    EXPECT_EQ(Asked("NViewLib.Load D:\\w.tga"), 1);
}

TEST_F(ImportingTest, CancelLeavesTheImage) {
    ASSERT_TRUE(Start(Gif));
    const Picture before = View().MainImage.Picture;
    InTga([](frmImportImage& dialog) {
        dialog.Chooser.File1.Deliver(forms::RowEvent{0});
        Press(dialog.CmdCancel);
    });
    ExpectCurrent(Gif);
    EXPECT_EQ(View().MainImage.Picture.Get(), before);
    EXPECT_FALSE(platform.disks.Exists(Working));
}

TEST_F(ImportingTest, AnUnsavedImageIsAskedForFirst) {
    ASSERT_TRUE(Start(Gif));
    MakeUnsaved(8, 8, GifColour);
    for (forms::Menu* entry : {&View().menu.mnuImportTGA, &View().menu.mnuImportPCX}) {
        ExpectDiscard(Answer::No);
        EXPECT_FALSE(Choose(*entry));
        EXPECT_EQ(app.FormCount(), 1);
        ExpectCurrent(Working);
        EXPECT_EQ(Loaded(Working).Width(), 8);
        ExpectIdle();
    }
    ExpectDiscard(Answer::Yes);
    ImportFirst(View().menu.mnuImportTGA);
    ExpectImported(Working, 5, 4, White);
}

TEST_F(ImportingTest, TheViewStartsAtTheUpperLeftCorner) {
    PutPicture("C:\\p\\large.bmp", 2000, 2000);
    platform.disks.PutFile("C:\\q\\large.tga", PlainTga(1500, 1500, White, Black));
    ASSERT_TRUE(Start("C:\\p\\large.bmp"));
    View().hsbPict.Value = 300;
    View().vsbPict.Value = 600;
    InTga([](frmImportImage& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\q";
        dialog.Chooser.File1.Deliver(forms::RowEvent{0});
        Press(dialog.CmdImport);
    });
    ExpectImported(Working, 1500, 1500, White);
    EXPECT_EQ(View().hsbPict.Value.Get(), 0);
    EXPECT_EQ(View().vsbPict.Value.Get(), 0);
    EXPECT_EQ(View().MainImage.Left.Get(), 0);
}

TEST_F(ImportingTest, TheSelectionsFlagStaysAndItsOutlineGoesWithThePicture) {
    ASSERT_TRUE(Start(Gif));
    Select(2, 3, 20, 15);
    ImportFirst(View().menu.mnuImportTGA);
    EXPECT_TRUE(View().selection.SelectionShown);
    ExpectImported(Working, 5, 4, White);
    ExpectBlackButTheFirst();

    platform.pictures.SaveBitmap(PlainPicture(30, 20, Black).pixels->Whole(), Working);
    View().imageOnShow.Become(Gif);
    View().selection.SelectionShown = false;
    Select(1, 1, 4, 3);
    EXPECT_FALSE(Choose(View().menu.mnuTempFile));
    EXPECT_TRUE(View().selection.SelectionShown);
    ExpectImported(Working, 30, 20, Black);
    ExpectBlackButTheFirst();
}

TEST_F(ImportingTest, OfAScrolledImageTheFlagStaysToo) {
    PutPicture("C:\\p\\large.bmp", 2000, 2000);
    ASSERT_TRUE(Start("C:\\p\\large.bmp"));
    View().hsbPict.Value = 300;
    Select(100, 100, 200, 150);
    ImportFirst(View().menu.mnuImportTGA);
    EXPECT_TRUE(View().selection.SelectionShown);
    ExpectBlackButTheFirst();
}

TEST_F(ImportingTest, TheWorkIsDoneUnderTheHourglass) {
    ASSERT_TRUE(Start(Gif));
    bool looked = false;
    toolkit.OnModal("frmImportImage", [&] {
        auto& dialog = *app.Loaded<frmImportImage>();
        dialog.Chooser.File1.Deliver(forms::RowEvent{0});
        toolkit.AtYield(1, [&] {
            looked = true;
            EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
            View().menu.mnuClear.Deliver(forms::ClickEvent{});
        });
        Press(dialog.CmdImport);
    });
    EXPECT_FALSE(Choose(View().menu.mnuImportTGA));
    EXPECT_TRUE(looked);
    ExpectIdle();
    ExpectImported(Working, 5, 4, White);
}

TEST_F(ImportingTest, AFileThatCannotBeReadLeavesTheViewEmpty) {
    platform.disks.PutFile("C:\\q\\bad.tga", "no picture");
    platform.disks.PutFile("C:\\q\\bad.pcx", "no picture");
    for (const bool tga : {true, false}) {
        if (tga) {
            ASSERT_TRUE(Start(Gif));
        } else {
            module.CurrentImage = Gif;
        }
        ExpectStop(std::string(NotImported) + "Invalid picture...");
        InImport(tga ? View().menu.mnuImportTGA : View().menu.mnuImportPCX, [](frmImportImage& dialog) {
            dialog.Chooser.Dir1.Path = "C:\\q";
            dialog.Chooser.File1.Deliver(forms::RowEvent{0});
            Press(dialog.CmdImport);
        });
        ExpectEmptyView();
        EXPECT_FALSE(platform.disks.Exists(Working));
    }
    ImportFirst(View().menu.mnuImportTGA);
    ExpectImported(Working, 5, 4, White);
}

TEST_F(ImportingTest, AFileThatCannotBeOpenedSaysWhy) {
    platform.disks.PutFile("C:\\q\\t.tga", PlainTga(5, 4, White, Black));
    ASSERT_TRUE(Start(Gif));
    ExpectStop(std::string(NotImported) + "File not found...");
    InTga([this](frmImportImage& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\q";
        dialog.Chooser.File1.Deliver(forms::RowEvent{0});
        platform.disks.Remove("C:\\q\\t.tga");  // the list is older than the folder
        Press(dialog.CmdImport);
    });
    ExpectEmptyView();

    platform.disks.PutFile("C:\\q\\t.tga", PlainTga(5, 4, White, Black));
    ExpectStop(std::string(NotImported) + "Permission denied...");
    InTga([this](frmImportImage& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\q";
        dialog.Chooser.File1.Deliver(forms::RowEvent{0});
        platform.faults.FailAlways(Service::NViewLib, "Load", ErrorNumber::PermissionDenied);
        platform.faults.FailAlways(Service::Files, "Open", ErrorNumber::PermissionDenied);
        Press(dialog.CmdImport);
    });
    ExpectEmptyView();

    platform.faults.Clear();
    ExpectStop(std::string(NotImported) + "Path/File access error...");
    InTga([this](frmImportImage& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\q";
        dialog.Chooser.File1.Deliver(forms::RowEvent{0});
        platform.faults.FailAlways(Service::NViewLib, "Load", ErrorNumber::PathFileAccessError);
        platform.faults.FailAlways(Service::Files, "Read", ErrorNumber::PathFileAccessError);
        Press(dialog.CmdImport);
    });
    ExpectEmptyView();
}

TEST_F(ImportingTest, AnImportThatCannotBeWrittenLeavesTheViewEmpty) {
    ASSERT_TRUE(Start(Gif));
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    ExpectStop(std::string(NotWritten) + "Disk full...");
    ImportFirst(View().menu.mnuImportTGA);
    ExpectEmptyView();
    EXPECT_EQ(Content(Gif), gifBytes);
}

TEST_F(ImportingTest, AWorkingFileThatIsReadOnlyIsMadeInTheProgramsFolder) {
    platform.disks.PutFile(Working, "locked");
    platform.disks.SetReadOnly(Working, true);
    ASSERT_TRUE(Start(Gif));
    ImportFirst(View().menu.mnuImportTGA);
    ExpectImported("C:\\Tavrix\\Untitled.BMP", 5, 4, White);
    EXPECT_TRUE(IsUnsavedImage(module));
    EXPECT_EQ(Content(Working), "locked");
}

TEST_F(ImportingTest, AnExportWritesTheImageOnShowAndNotTheOneImportedBefore) {
    // The library still holds the Targa picture when a GIF file is exported.
    ASSERT_TRUE(Start());
    ImportFirst(View().menu.mnuImportTGA);
    ExpectDiscard(Answer::Yes);
    View().Deliver(forms::DropEvent{{Gif}});
    ExpectCurrent(Gif);
    for (const bool readable : {true, false}) {
        if (!readable) {  // for the library
            platform.pictures.SetPicture("C:\\p\\b.gif", PlainPicture(30, 20, GifColour));
            ImportFirst(View().menu.mnuImportTGA);
            ExpectDiscard(Answer::Yes);
            View().Deliver(forms::DropEvent{{"C:\\p\\b.gif"}});
        }
        const std::string path = readable ? "C:\\p\\a.JPG" : "C:\\p\\b.JPG";
        InDialog<ExportJpgFrm>(View().menu.mnuExportJPG, "ExportJpgFrm", [&](ExportJpgFrm& dialog) {
            ExpectQuestion("About to export the image as:\r\n\r\n" + path + "\r\n\r\nIs this filename OK?",
                           Answer::Yes);
            Press(dialog.Buttons.CmdExport);
        });
        const Picture exported = Loaded(path);
        EXPECT_EQ(exported.Width(), 30);
        EXPECT_EQ(exported.Height(), 20);
        ExpectColour(exported, GifColour);
    }
}

TEST_F(ImportingTest, DoNothingWhileTheProgramIsBusy) {
    ASSERT_TRUE(Start(Gif));
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    for (forms::Menu* entry : {&View().menu.mnuImportTGA, &View().menu.mnuImportPCX, &View().menu.mnuTempFile,
                               &View().menu.mnuImportPalette})
        EXPECT_FALSE(Choose(*entry));
    EXPECT_EQ(app.FormCount(), 1);
    EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
    ExpectCurrent(Gif);
}

TEST_F(ImportingTest, TheMainViewLeavesTheTopmostBandMeanwhile) {
    ASSERT_TRUE(Start(Gif));
    module.config.TopMostWindow = true;
    View().SetTopmost(true);
    InTga([this](frmImportImage&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
    InPcx([this](frmImportImage&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
}

TEST_F(ImportingTest, TheTemporaryFileOfAnEarlierEditComesBack) {
    platform.pictures.SaveBitmap(PlainPicture(9, 6).pixels->Whole(), Working);
    ASSERT_TRUE(Start(Gif));
    View().menu.mnuUndo.Enabled = true;
    EXPECT_FALSE(Choose(View().menu.mnuTempFile));
    ExpectImported(Working, 9, 6, OpaquePixel(200, 30, 30));
    EXPECT_TRUE(IsUnsavedImage(module));
    ExpectIdle();

    ExpectTold(OpenAlready);
    EXPECT_FALSE(Choose(View().menu.mnuTempFile));
    ExpectCurrent(Working);
}

TEST_F(ImportingTest, WithoutATemporaryFileThePictureStaysOnShow) {
    PutPicture("C:\\p\\large.bmp", 2000, 2000);
    ASSERT_TRUE(Start("C:\\p\\large.bmp"));
    View().hsbPict.Value = 300;
    const Picture before = View().MainImage.Picture;
    for (const char* why : {"File not found...", "Invalid picture..."}) {
        ExpectStop(std::string("Unable to open the temporary image file.\r\n\r\n") + why);
        EXPECT_FALSE(Choose(View().menu.mnuTempFile));
        ExpectCurrent("C:\\p\\large.bmp");
        EXPECT_EQ(View().MainImage.Picture.Get(), before);
        EXPECT_EQ(View().hsbPict.Value.Get(), 300);
        EXPECT_TRUE(View().menu.mnuEdit.Visible);
        ExpectIdle();
        platform.disks.PutFile(Working, "no picture");
    }
}

TEST_F(ImportingTest, WithoutATemporaryFileAndAnImageTheViewStaysEmpty) {
    ASSERT_TRUE(Start());
    ExpectStop("Unable to open the temporary image file.\r\n\r\nFile not found...");
    EXPECT_FALSE(Choose(View().menu.mnuTempFile));
    ExpectEmptyView();
    ExpectIdle();
}

}  // namespace
}  // namespace tavrix::test
