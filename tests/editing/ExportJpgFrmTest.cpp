#include "core/UnsavedImage.h"
#include "editing/ExportFrmTest.h"
#include "editing/saving/Jpeg.h"
#include "support/ErrorOfCall.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;

class ExportJpgFrmTest : public ExportFrmTest {
  protected:
    static constexpr const char* Exported = "C:\\p\\a.JPG";

    /// A picture that only the program's own loader knows, so that the library cannot read it.
    void StartWithForeign() {
        PutPicture("C:\\p\\x.gif", 30, 20);
        ASSERT_TRUE(Start("C:\\p\\x.gif"));
    }
    /// The size of what the library wrote, and its colour.
    void ExpectJpeg(const std::string& path, int width, int height, Pixel colour) {
        ASSERT_TRUE(platform.disks.Exists(path));
        const Picture written = Loaded(path);
        EXPECT_EQ(written.format, "jpg");
        EXPECT_EQ(written.Width(), width);
        EXPECT_EQ(written.Height(), height);
        ExpectColour(written, colour);
    }
};

TEST_F(ExportJpgFrmTest, TextsAreAsTold) {
    ASSERT_TRUE(Start(Gif));
    InJpg([](ExportJpgFrm& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Export JPG");
        EXPECT_EQ(dialog.HelpContext, HelpContext::Export);
        EXPECT_EQ(dialog.lblQuality.Caption.Get(), "Image quality:");
        EXPECT_EQ(dialog.ComboQuality.ToolTip.Get(), "Click here to select image quality.");
        EXPECT_EQ(dialog.Buttons.CmdExport.Caption.Get(), "&Export");
        EXPECT_EQ(dialog.Buttons.CmdExport.ToolTip.Get(), "Export the current image as a BMP.");
        EXPECT_EQ(dialog.Buttons.CmdCancel.ToolTip.Get(), "Don't export BMP file.");
        ExpectProposed(dialog.Target, "a.JPG");
        ExpectPlace(dialog.Target, "C:\\p");
    });
}

TEST_F(ExportJpgFrmTest, KeysReachEverything) {
    ASSERT_TRUE(Start(Gif));
    InJpg([](ExportJpgFrm& dialog) {
        std::vector<std::string> names;
        for (const forms::Control* control : dialog.Controls())
            names.push_back(control->Name());
        EXPECT_EQ(names,
                  (std::vector<std::string>{"lblCurMsg", "lblCurrent", "lblFilename", "txtFilename",
                                            "lblDrives", "Drive1", "lblFolders", "Dir1", "CmdFF", "CmdNew",
                                            "lblQuality", "ComboQuality", "CmdExport", "CmdCancel"}));
        EXPECT_TRUE(dialog.Buttons.CmdExport.Default);
        EXPECT_TRUE(dialog.Buttons.CmdCancel.Cancel);
        ExpectOwnLetters(dialog, 7);
        EXPECT_EQ(static_cast<headless::HeadlessLabelPeer*>(dialog.lblQuality.Peer())->buddy,
                  dialog.ComboQuality.Peer());
    });
}

TEST_F(ExportJpgFrmTest, TheQualitiesAreElevenAndTheSettingIsSelected) {
    ASSERT_TRUE(Start(Gif));
    for (const int quality : {8, 0, 10}) {
        module.config.QualityJPG = static_cast<std::int16_t>(quality);
        InJpg([&](ExportJpgFrm& dialog) {
            std::vector<std::string> rows;
            for (int i = 0; i < dialog.ComboQuality.ListCount(); ++i)
                rows.push_back(dialog.ComboQuality.List(i));
            EXPECT_EQ(rows, (std::vector<std::string>{"0 (Small File)", "10", "20", "30", "40", "50", "60",
                                                      "70", "80 (Default)", "90", "100 (Big File)"}));
            EXPECT_EQ(dialog.ComboQuality.ListIndex.Get(), quality);
        });
    }
}

TEST_F(ExportJpgFrmTest, TheQualityIsKeptOnlyWhenTheExportGoesAhead) {
    ASSERT_TRUE(Start(Gif));
    InJpg([this](ExportJpgFrm& dialog) {
        dialog.ComboQuality.Deliver(forms::RowEvent{2});
        ExpectNew(Exported, Answer::No);
        Press(dialog.Buttons.CmdExport);
        Press(dialog.Buttons.CmdCancel);
    });
    EXPECT_EQ(module.config.QualityJPG, 8);
    InJpg([this](ExportJpgFrm& dialog) {
        dialog.ComboQuality.Deliver(forms::RowEvent{2});
        ExpectNew(Exported, Answer::Yes);
        Press(dialog.Buttons.CmdExport);
    });
    EXPECT_EQ(module.config.QualityJPG, 2);
    EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
    EXPECT_EQ(Saved("QualityJPG"), "2");
}

TEST_F(ExportJpgFrmTest, TheLibraryGetsTenTimesTheIndex) {
    Surface noise(64, 64);
    unsigned number = 1;
    for (Pixel& pixel : noise.Pixels())
        pixel = 0xFF000000U | ((number = number * 1103515245U + 12345U) >> 8U);
    platform.pictures.SaveBitmap(noise, "C:\\p\\noise.bmp");
    ASSERT_TRUE(Start("C:\\p\\noise.bmp"));
    std::size_t before = 0;
    for (const int index : {0, 5, 10}) {
        module.CurrentImage = "C:\\p\\noise.bmp";
        const std::string name = "q" + std::to_string(index) + ".jpg";
        module.config.QualityJPG = static_cast<std::int16_t>(index);
        ExportJpg(name);
        // The library alone with that quality.
        ASSERT_NE(platform.viewLib.Load("C:\\p\\noise.bmp", 0), 0);
        ASSERT_NE(platform.viewLib.SaveAsJPG(index * 10, "C:\\p\\expected.jpg"), 0);
        EXPECT_EQ(Content("C:\\p\\" + name), Content("C:\\p\\expected.jpg"));
        EXPECT_GT(Content("C:\\p\\" + name).size(), before);
        before = Content("C:\\p\\" + name).size();
    }
}

TEST_F(ExportJpgFrmTest, RefusalsAndQuestionsAreThoseOfAllExports) {
    platform.disks.PutFile("C:\\p\\old.jpg", "old");
    ASSERT_TRUE(Start(Gif));
    InJpg([this](ExportJpgFrm& dialog) {
        forms::TextBox& name = dialog.Target.txtFilename;
        Enter(name, " ");
        ExpectTold("A filename was not entered, unable to export image...");
        Press(dialog.Buttons.CmdExport);
        Enter(name, "ab:c");
        ExpectTold(Colon);
        Press(dialog.Buttons.CmdExport);
        ExpectCaret(name, 2);
        Enter(name, "a\\c");
        ExpectTold(Backslash);
        Press(dialog.Buttons.CmdExport);
        ExpectCaret(name, 1);
        const std::vector<std::pair<std::string, std::string>> names{
            {"b", "b.JPG"}, {"b.jpg", "b.jpg"}, {"b.jpeg", "b.jpeg.JPG"}, {"b.bmp", "b.bmp.JPG"}};
        for (const auto& [entered, meant] : names) {
            Enter(name, entered);
            ExpectNew("C:\\p\\" + meant, Answer::No);
            Press(dialog.Buttons.CmdExport);
            EXPECT_EQ(name.Text.Get(), meant);
        }
        Enter(name, "old");
        ExpectReplace("C:\\p\\old.JPG", Answer::No);
        Press(dialog.Buttons.CmdExport);
        EXPECT_TRUE(dialog.Visible());
    });
    EXPECT_EQ(Content("C:\\p\\old.jpg"), "old");
    ExpectCurrent(Gif);
}

TEST_F(ExportJpgFrmTest, TheNewFileIsTheImageOnShow) {
    ASSERT_TRUE(Start(Gif));
    View().menu.mnuUndo.Enabled = true;
    View().menu.mnuUndo.Caption = "&Undo Crop";
    ExportJpg("a.JPG");
    ExpectCurrent(Exported);
    EXPECT_EQ(module.config.Recent[0], Exported);
    EXPECT_FALSE(View().menu.mnuAnimatedGIF.Enabled);
    EXPECT_TRUE(View().menu.mnuUndo.Enabled);
    EXPECT_EQ(View().menu.mnuUndo.Caption.Get(), "&Undo Crop");
    EXPECT_EQ(Content(Gif), gifBytes);
    ExpectJpeg(Exported, 30, 20, GifColour);
    EXPECT_EQ(Asked("Pictures.SaveBitmap"), 0) << "the library has read the file itself";
}

TEST_F(ExportJpgFrmTest, AFileThatTheLibraryCannotReadGoesThroughATemporaryBitmap) {
    StartWithForeign();
    ExportJpg("x.JPG");
    ExpectCurrent("C:\\p\\x.JPG");
    ExpectJpeg("C:\\p\\x.JPG", 30, 20, OpaquePixel(200, 30, 30));
    EXPECT_EQ(Asked("Pictures.SaveBitmap C:\\Temp\\~temp.BMP"), 1);
    EXPECT_EQ(Asked("NViewLib.Load C:\\Temp\\~temp.BMP"), 1);
    EXPECT_EQ(Asked("Files.Delete C:\\Temp\\~temp.bmp"), 1);
    EXPECT_FALSE(platform.disks.Exists("C:\\Temp\\~temp.BMP"));
}

TEST_F(ExportJpgFrmTest, AnEditIsExportedFromItsWorkingFile) {
    ASSERT_TRUE(Start(Gif));
    MakeUnsaved(12, 9, OpaquePixel(250, 240, 10));
    ExportJpg("edit.jpg");
    ExpectJpeg("C:\\p\\edit.jpg", 12, 9, OpaquePixel(250, 240, 10));
    EXPECT_FALSE(IsUnsavedImage(module));
    EXPECT_TRUE(platform.disks.Exists(Working));
    EXPECT_EQ(Asked("NViewLib.Load C:\\Temp\\Untitled.BMP"), 1);
}

TEST_F(ExportJpgFrmTest, ThePictureOfAnEarlierImportIsNeverWritten) {
    platform.disks.PutFile("C:\\p\\t.tga", PlainTga(50, 40, 0xFFFFFFFFU, 0xFF000000U));
    StartWithForeign();
    ASSERT_NE(platform.viewLib.Load("C:\\p\\t.tga", 0), 0);
    ExportJpg("x.JPG");
    ExpectJpeg("C:\\p\\x.JPG", 30, 20, OpaquePixel(200, 30, 30));

    // Nor where the way through the temporary bitmap fails, whatever lies there.
    ASSERT_NE(platform.viewLib.Load("C:\\p\\t.tga", 0), 0);
    platform.pictures.SaveBitmap(platform.viewLib.Image(), "C:\\Temp\\~temp.BMP");
    module.CurrentImage = "C:\\p\\x.gif";
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    ExportJpg("y.JPG");
    EXPECT_FALSE(platform.disks.Exists("C:\\p\\y.JPG"));
}

TEST_F(ExportJpgFrmTest, ALoadThatFailsLeavesTheSurfaceAsItIs) {
    platform.disks.PutFile("C:\\p\\t.tga", PlainTga(50, 40, 0xFFFFFFFFU, 0xFF000000U));
    platform.disks.PutFile("C:\\p\\bad.tga", "bad");
    ASSERT_TRUE(Start(Gif));
    const Picture before = View().MainImage.Picture;
    ASSERT_NE(platform.viewLib.Load("C:\\p\\t.tga", 0), 0);
    EXPECT_EQ(ErrorOfCall([this] { LoadThroughNViewLib(module, View().MainImage, "C:\\p\\bad.tga", 0); }),
              static_cast<int>(ErrorNumber::InvalidPicture));
    EXPECT_EQ(View().MainImage.Picture.Get(), before);
    EXPECT_EQ(View().MainImage.Width.Get(), 30 * 15);
    EXPECT_TRUE(platform.viewLib.Image().Empty());
    EXPECT_EQ(ErrorOfCall([this] { LoadThroughNViewLib(module, View().MainImage, "C:\\p\\none.tga", 0); }),
              static_cast<int>(ErrorNumber::FileNotFound));
    EXPECT_EQ(View().MainImage.Picture.Get(), before);
    LoadThroughNViewLib(module, View().MainImage, "C:\\p\\t.tga", 0);
    EXPECT_EQ(View().MainImage.Width.Get(), 50 * 15);
    EXPECT_EQ(View().MainImage.Height.Get(), 40 * 15);
    EXPECT_EQ(View().MainImage.Image().pixels->Whole().Row(0)[0], 0xFFFFFFFFU);
}

TEST_F(ExportJpgFrmTest, ASurfaceThatDoesNotSizeItselfTakesTheSizeToo) {
    platform.disks.PutFile("C:\\p\\t.tga", PlainTga(50, 40, 0xFFFFFFFFU, 0xFF000000U));
    ASSERT_TRUE(Start(Gif));
    forms::PictureBox& surface = View().picFrame;
    surface.AutoSize = false;
    LoadThroughNViewLib(module, surface, "C:\\p\\t.tga", 0);
    EXPECT_EQ(surface.Width.Get(), 50 * 15);
    EXPECT_EQ(surface.Height.Get(), 40 * 15);
}

TEST_F(ExportJpgFrmTest, APictureTooLargeForTheLibrarysNumbersIsExportedAllTheSame) {
    Surface strip(40000, 2);
    strip.Fill(GifColour);
    platform.pictures.SaveBitmap(strip, "C:\\p\\strip.bmp");
    ASSERT_TRUE(Start("C:\\p\\strip.bmp"));
    const Picture before = View().MainImage.Picture;
    ExportJpg("strip.jpg");
    EXPECT_EQ(View().MainImage.Picture.Get(), before);
    ExpectJpeg("C:\\p\\strip.jpg", 40000, 2, GifColour);
}

TEST_F(ExportJpgFrmTest, AWriteThatFailsIsNotReported) {
    platform.disks.PutFile("C:\\p\\locked.jpg", "locked");
    platform.disks.SetReadOnly("C:\\p\\locked.jpg", true);
    ASSERT_TRUE(Start(Gif));
    InJpg([this](ExportJpgFrm& dialog) {
        Enter(dialog.Target.txtFilename, "locked.jpg");
        ExpectReplace("C:\\p\\locked.jpg", Answer::Yes);
        Press(dialog.Buttons.CmdExport);
    });
    EXPECT_EQ(Content("C:\\p\\locked.jpg"), "locked");
    ExpectCurrent("C:\\p\\locked.jpg");
    module.CurrentImage = Gif;

    platform.faults.FailAlways(Service::NViewLib, "SaveAsJPG", ErrorNumber::DiskFull);
    ExportJpg("none.jpg");
    EXPECT_FALSE(platform.disks.Exists("C:\\p\\none.jpg"));
    EXPECT_FALSE(platform.disks.Exists("C:\\Temp\\~temp.BMP"));
    ExpectCurrent("C:\\p\\none.jpg");
    EXPECT_EQ(Asked("NViewLib.SaveAsJPG C:\\p\\none.jpg"), 2);
    EXPECT_EQ(Content(Gif), gifBytes);
}

/// An edit whose export fails without a word.
class FailedExport : public ExportJpgFrmTest {
  protected:
    FailedExport() { Setting("DeleteUntitled", "True"); }

    void StartWithAFailedExport() {
        ASSERT_TRUE(Start(Gif));
        EXPECT_FALSE(Choose(View().menu.mnuFlipVertically));
        ASSERT_EQ(module.CurrentImage, Working);
        edit = Content(Working);
        FailToExport("lost");
    }
    void FailToExport(const std::string& name) {
        platform.faults.FailAlways(Service::NViewLib, "SaveAsJPG", ErrorNumber::DiskFull);
        ToFolderOfImages(name);
        platform.faults.Clear();
        ExpectCurrent("C:\\q\\" + name + ".JPG");
        EXPECT_FALSE(platform.disks.Exists(module.CurrentImage));
    }
    void ToFolderOfImages(const std::string& name) {
        InJpg([&](ExportJpgFrm& dialog) {
            dialog.Target.Lists.GoTo("C:\\q");
            Enter(dialog.Target.txtFilename, name);
            ExpectQuestion(
                "About to export the image as:\r\n\r\nC:\\q\\" + name + ".JPG\r\n\r\nIs this filename OK?",
                Answer::Yes);
            Press(dialog.Buttons.CmdExport);
        });
    }
    /// The user closes the window; whether the working file is still there.
    bool StaysAtExit() {
        EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
        return platform.disks.Exists(Working);
    }

    std::string edit;
};

TEST_F(FailedExport, LeavesTheWorkingFileAtTheExit) {
    StartWithAFailedExport();
    EXPECT_TRUE(StaysAtExit());
    EXPECT_EQ(Content(Working), edit);
}

TEST_F(FailedExport, LeavesItWhateverIsOpenedAfterwards) {
    StartWithAFailedExport();
    View().Deliver(forms::DropEvent{{Gif}});
    ExpectCurrent(Gif);
    EXPECT_TRUE(StaysAtExit());
}

TEST_F(FailedExport, BringsTheEditBackAsTheTemporaryFile) {
    StartWithAFailedExport();
    EXPECT_FALSE(Choose(View().menu.mnuTempFile));
    ExpectCurrent(Working);
    EXPECT_TRUE(IsUnsavedImage(module));
    ExpectQuestion("The current file has not been saved.\r\n\r\nDiscard changes and exit?", Answer::Yes);
    EXPECT_FALSE(StaysAtExit());
}

TEST_F(FailedExport, DoesNotMatterOnceTheEditIsBackAndSaved) {
    StartWithAFailedExport();
    EXPECT_FALSE(Choose(View().menu.mnuTempFile));
    ToFolderOfImages("saved");
    ExpectCurrent("C:\\q\\saved.JPG");
    EXPECT_FALSE(StaysAtExit());
}

TEST_F(FailedExport, DoesNotMatterToTheNextEdit) {
    StartWithAFailedExport();
    EXPECT_FALSE(Choose(View().menu.mnuFlipHorizontal));
    ExpectCurrent(Working);
    ExpectQuestion("The current file has not been saved.\r\n\r\nDiscard changes and exit?", Answer::Yes);
    EXPECT_FALSE(StaysAtExit());
}

TEST_F(FailedExport, DoesNotMatterOnceTheNextEditIsSaved) {
    StartWithAFailedExport();
    EXPECT_FALSE(Choose(View().menu.mnuUndo));
    ExpectCurrent(Working);
    ToFolderOfImages("saved");
    EXPECT_FALSE(StaysAtExit());
}

TEST_F(FailedExport, LeavesTheEditInTheTrashWhereAnotherTakesItsPlace) {
    StartWithAFailedExport();
    View().Deliver(forms::DropEvent{{Gif}});
    EXPECT_FALSE(Choose(View().menu.mnu90CW));
    ASSERT_EQ(platform.shell.trash.size(), 1U);
    EXPECT_EQ(platform.shell.trash.front(), (headless::RecordingShell::Trashed{Working, edit}));
    ExpectCurrent(Working);
    EXPECT_TRUE(platform.disks.Exists(Working));
    // Of this one the user is asked.
    EXPECT_FALSE(Choose(View().menu.mnuFlipHorizontal));
    EXPECT_EQ(platform.shell.trash.size(), 1U);
}

TEST_F(FailedExport, StopsAnEditThatWouldReplaceItWhereNothingTakesIt) {
    StartWithAFailedExport();
    View().Deliver(forms::DropEvent{{Gif}});
    platform.shell.trashRefusal = ErrorNumber::PermissionDenied;
    platform.faults.FailAlways(Service::Files, "Copy", ErrorNumber::DiskFull);
    ExpectStop("Unable to write edited image to a temporary file.\r\n\r\nDisk full...");
    EXPECT_FALSE(Choose(View().menu.mnuFlipHorizontal));
    EXPECT_EQ(Content(Working), edit);
    platform.faults.Clear();
    EXPECT_TRUE(StaysAtExit());
}

TEST_F(FailedExport, OfAFileOfTheUsersKeepsNoWorkingFile) {
    ASSERT_TRUE(Start(Gif));
    platform.disks.PutFile(Working, "of another time");
    FailToExport("lost");
    EXPECT_FALSE(StaysAtExit());
}

TEST_F(ExportJpgFrmTest, TheOpenedFileIsNotWrittenUnderAnotherName) {
    platform.disks.PutLink(Gif, "C:\\q\\other.jpg");
    ASSERT_TRUE(Start(Gif));
    InJpg([this](ExportJpgFrm& dialog) {
        dialog.Target.Dir1.Path = "C:\\q";
        Enter(dialog.Target.txtFilename, "other.jpg");
        ExpectReplace("C:\\q\\other.jpg", Answer::Yes);
        ExpectNotExported("C:\\q\\other.jpg", "Permission denied");
        Press(dialog.Buttons.CmdExport);
    });
    EXPECT_EQ(Content(Gif), gifBytes);
    ExpectCurrent(Gif);
    EXPECT_EQ(module.config.QualityJPG, 8);
}

}  // namespace
}  // namespace tavrix::test
