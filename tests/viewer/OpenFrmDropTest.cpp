// Files dropped on the preview of the Open Image dialog.

#include "viewer/OpenFrmTest.h"

namespace tavrix::test {
namespace {

using headless::Service;

class OpenFrmDropTest : public OpenFrmTest {
  protected:
    static void Drop(OpenFrm& dialog, const std::vector<std::string>& files) {
        dialog.picPreview.Deliver(forms::DropEvent{files});
    }
    void ExpectNoImage() {
        Expect({.text = "This file can't be opened by Tavrix, it may not be a valid image.",
                .title = "Unable to show preview..."});
    }
    /// The dialog is as it was opened.
    void ExpectUntouched(const OpenFrm& dialog) const {
        EXPECT_FALSE(dialog.ChkPreview.Value);
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\p");
        EXPECT_EQ(dialog.File1.FileName(), "a.bmp");
        ExpectNoPreview(dialog);
        EXPECT_EQ(Loads(), 0);
    }
};

TEST_F(OpenFrmDropTest, ThePreviewItsHolderAndTheDialogTakeDrops) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        for (forms::EventSink* sink : {static_cast<forms::EventSink*>(&dialog.picPreview),
                                       static_cast<forms::EventSink*>(&dialog.picHoldPreview),
                                       static_cast<forms::EventSink*>(&dialog)}) {
            Tick(dialog, false);
            dialog.Dir1.Path = "C:\\p";
            const int before = Loads();
            sink->Deliver(forms::DropEvent{{"C:\\q\\y.bmp"}});
            EXPECT_EQ(dialog.Drive1.Drive.Get(), "C:");
            EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\q");
            EXPECT_EQ(dialog.File1.FileName(), "y.bmp");
            EXPECT_TRUE(dialog.ChkPreview.Value);
            ExpectPreview(dialog, "y.bmp");
            Pass(10000);
            EXPECT_EQ(Loads(), before + 1) << "exactly one preview";
        }
    });
    EXPECT_EQ(module.CurrentImage, "");
    EXPECT_TRUE(module.config.OpenShowPreview);
}

TEST_F(OpenFrmDropTest, AFileOfTheSameFolderIsFoundWhateverItsCase) {
    ASSERT_TRUE(Start());
    InTickedDialog([&](OpenFrm& dialog) {
        Drop(dialog, {"c:\\P\\C.BMP", "C:\\q\\y.bmp"});
        EXPECT_EQ(dialog.File1.FileName(), "c.bmp");
        ExpectPreview(dialog, "c.bmp");
        Pass(10000);
        EXPECT_EQ(Loads(), 2);
        Drop(dialog, {"C:\\p\\c.bmp"});
        Pass(10000);
        EXPECT_EQ(Loads(), 3) << "the file that is selected already is previewed anew";
    });
}

TEST_F(OpenFrmDropTest, OnAnotherDriveItIsFoundToo) {
    ASSERT_TRUE(Start());
    platform.disks.AddDrive('D', DriveType::Fixed);
    platform.disks.InsertDisk('D');
    PutPicture("D:\\r.bmp", 10, 10);
    InDialog([&](OpenFrm& dialog) {
        Drop(dialog, {"D:\\r.bmp"});
        EXPECT_EQ(dialog.Drive1.Drive.Get(), "D:");
        EXPECT_EQ(dialog.Dir1.Path.Get(), "D:\\");
        ExpectPreview(dialog, "r.bmp");
    });
}

TEST_F(OpenFrmDropTest, AShortcutLeadsToItsTarget) {
    ASSERT_TRUE(Start());
    platform.shell.links["C:\\desk\\s.Lnk"] = "C:\\q\\y.bmp";
    InDialog([&](OpenFrm& dialog) {
        Drop(dialog, {"C:\\desk\\s.Lnk"});
        ExpectPreview(dialog, "y.bmp");
    });
}

TEST_F(OpenFrmDropTest, ABackslashAtTheEndIsTakenAway) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        Drop(dialog, {"C:\\p\\b.bmp\\"});
        ExpectPreview(dialog, "b.bmp");
    });
}

TEST_F(OpenFrmDropTest, AFolderMayNotBeDropped) {
    ASSERT_TRUE(Start());
    platform.disks.PutFolder("C:\\p\\sub.bmp");
    platform.shell.links["C:\\s.lnk"] = "C:\\q";
    InDialog([&](OpenFrm& dialog) {
        for (const char* path : {"C:\\q", "C:\\q\\", "C:\\p\\sub.bmp", "C:\\s.lnk", "C:\\"}) {
            ExpectTold("You may not drop a folder here, unable to show preview...");
            Drop(dialog, {path});
            ExpectUntouched(dialog);
        }
    });
}

TEST_F(OpenFrmDropTest, TgaAndPcxMustBeImported) {
    ASSERT_TRUE(Start());
    platform.shell.links["C:\\s.lnk"] = "C:\\p\\d.PCX";
    InDialog([&](OpenFrm& dialog) {
        for (const char* ending : {".TGA", ".PCX", ".pcx"}) {
            const std::string path = std::string("C:\\p\\d") + ending;
            platform.disks.PutFile(path, "x");
            ExpectTold(ending +
                       std::string(" files must be imported into Tavrix and then saved as a supported format "
                                   "first, unable to open:\r\n\r\n") +
                       path);
            Drop(dialog, {path});
            ExpectUntouched(dialog);
        }
        ExpectTold(
            ".PCX files must be imported into Tavrix and then saved as a supported format first, unable to "
            "open:\r\n\r\nC:\\p\\d.PCX");
        Drop(dialog, {"C:\\s.lnk"});
    });
}

TEST_F(OpenFrmDropTest, AShowIsNoImage) {
    ASSERT_TRUE(Start());
    platform.shell.links["C:\\s.lnk"] = "C:\\p\\show.TVS";
    platform.disks.PutFile("C:\\p\\show.TVS", "x");
    const std::string text =
        "The Tavrix slide show file type (.TVS) is not an image file, unable to open:\r\n\r\n";
    InDialog([&](OpenFrm& dialog) {
        ExpectTold(text + "C:\\p\\show.TVS");
        Drop(dialog, {"C:\\p\\show.TVS"});
        ExpectTold(text + "c:\\p\\show.tvs");
        Drop(dialog, {"c:\\p\\show.tvs"});
        ExpectTold(text + "C:\\p\\show.TVS");
        Drop(dialog, {"C:\\s.lnk"});
        ExpectUntouched(dialog);
    });
}

TEST_F(OpenFrmDropTest, WhatTheListDoesNotShowCannotBeOpened) {
    ASSERT_TRUE(Start());
    platform.disks.PutFile("C:\\q\\notes.txt", "x");
    InDialog([&](OpenFrm& dialog) {
        for (const char* path : {"C:\\q\\notes.txt", "C:\\q\\gone.bmp"}) {
            ExpectNoImage();
            Drop(dialog, {path});
            EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\q");
            EXPECT_EQ(dialog.File1.ListIndex.Get(), -1);
            EXPECT_TRUE(dialog.ChkPreview.Value);
        }
        for (const char* path : {"C:\\gone\\x.bmp", "Z:\\x.bmp", "x.bmp"}) {
            ExpectNoImage();
            Drop(dialog, {path});
        }
        EXPECT_EQ(Loads(), 0);
        ExpectWaiting(dialog);
    });
}

TEST_F(OpenFrmDropTest, AFileThatIsNewerThanTheListIsFound) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        EXPECT_EQ(dialog.File1.ListCount(), 3);
        PutPicture("C:\\p\\new.bmp", 10, 10);
        Drop(dialog, {"C:\\p\\new.bmp"});
        EXPECT_EQ(dialog.File1.FileName(), "new.bmp");
        ExpectPreview(dialog, "new.bmp");
    });
}

TEST_F(OpenFrmDropTest, SoCanNothingAtAll) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        for (const std::vector<std::string>& files :
             {std::vector<std::string>{}, {""}, {"\\"}, {"C:\\desk\\broken.lnk"}}) {
            ExpectNoImage();
            Drop(dialog, files);
            EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\p");
        }
        EXPECT_EQ(Loads(), 0);
    });
}

TEST_F(OpenFrmDropTest, ADriveWithoutADiskIsTold) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        ExpectTold(NoDrive);
        ExpectNoImage();
        Drop(dialog, {"A:\\x.bmp"});
        EXPECT_EQ(dialog.Drive1.Drive.Get(), "C:");
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\p");
    });
}

TEST_F(OpenFrmDropTest, OneThatIsNoPictureIsToldOnce) {
    ASSERT_TRUE(Start());
    platform.pictures.SetFailure("C:\\q\\y.bmp", RuntimeError(ErrorNumber::InvalidPicture));
    InDialog([&](OpenFrm& dialog) {
        ExpectPreviewFailure("Invalid picture");
        Drop(dialog, {"C:\\q\\y.bmp"});
        Pass(10000);
        EXPECT_EQ(dialog.File1.FileName(), "y.bmp");
        ExpectNoPreview(dialog);
    });
}

TEST_F(OpenFrmDropTest, APreviewThatIsDueDoesNotFollowAFailedDrop) {
    ASSERT_TRUE(Start());
    InTickedDialog([&](OpenFrm& dialog) {
        Select(dialog, 1);
        ExpectNoImage();
        Drop(dialog, {"C:\\p\\gone.bmp"});
        Pass(10000);
        EXPECT_EQ(Loads(), 1);
    });
}

TEST_F(OpenFrmDropTest, IsIgnoredWhileTheProgramIsBusy) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        module.Screen().MousePointer = forms::MousePointer::Hourglass;
        Drop(dialog, {"C:\\q\\y.bmp"});
        Drop(dialog, {"C:\\q"});
        module.Screen().MousePointer = forms::MousePointer::Default;
        ExpectUntouched(dialog);
    });
}

}  // namespace
}  // namespace tavrix::test
