#include "FloppyTest.h"
#include "filing/floppies/frmCopyFloppy.h"

namespace tavrix::test {

template <>
std::string FloppyTest::DialogName<frmCopyFloppy>() {
    return "frmCopyFloppy";
}

namespace {

using headless::Service;
using Names = std::vector<std::string>;

class FloppyFromTest : public FloppyTest {
  protected:
    FloppyFromTest() {
        PutOnDisk({"x.bmp", "y.gif", "readme.txt"});
        platform.disks.PutFolder("C:\\To");
        module.config.LastCopyToPath = "C:\\TO\\";
    }

    void InDialog(const std::function<void(frmCopyFloppy&)>& use) {
        FloppyTest::InDialog<frmCopyFloppy>(View().menu.mnuCopyFromFloppy, use);
    }
    /// Copies these files and answers the question with Yes.
    void Copy(const Names& names) {
        InDialog([&](frmCopyFloppy& dialog) {
            Select(dialog.Files, names);
            Press(dialog.CmdCopy);
        });
    }
    void ExpectQuestion(Answer reply = Answer::Yes) {
        ExpectAsked("Copy 2 files to the following directory?\r\n\r\nC:\\TO\\", reply);
    }
    void ExpectReplaceAs(const std::string& name, Answer reply) {
        ExpectReplace("in the destination folder", name, "Replace this file with the one on the floppy?",
                      reply);
    }
    static constexpr const char* NothingThere =
        "There are no files on the floppy disk to copy.\r\n\r\nInsert correct disk and then try again...";
};

TEST_F(FloppyFromTest, SaysWhatItIs) {
    InDialog([](frmCopyFloppy& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Copy Image(s) From Floppy Drive");
        EXPECT_EQ(dialog.Frame1.Caption.Get(), "Select File(s):");
        EXPECT_EQ(dialog.Frame2.Caption.Get(), "Select Destination Folder:");
        EXPECT_EQ(dialog.CmdNewDisk.Caption.Get(), "&Read Another Disk");
        EXPECT_EQ(dialog.CmdNewDisk.ToolTip.Get(), "Read the contents of another floppy disk.");
        EXPECT_EQ(dialog.CmdCopy.Caption.Get(), "C&opy");
        EXPECT_EQ(dialog.CmdCopy.ToolTip.Get(), "Copy the selected files to the selected destination.");
        EXPECT_EQ(dialog.CmdCancel.ToolTip.Get(), "Click here to cancel file copy.");
        EXPECT_EQ(dialog.Drive2.ToolTip.Get(), "Click here to select the \"destination\" drive.");
        EXPECT_EQ(dialog.CmdNewFolder.Caption.Get(), "Ne&w Folder");
        EXPECT_EQ(dialog.CmdNewFolder.ToolTip.Get(),
                  "Create a new folder in the currently selected \"destination\" directory.");
        EXPECT_EQ(dialog.HelpContext, 660U);
        EXPECT_EQ(Listed(dialog.Files), (Names{"x.bmp", "y.gif"}));
        EXPECT_EQ(dialog.Dir2.Path.Get(), "C:\\To");
    });
}

TEST_F(FloppyFromTest, WithoutALastFolderTheImagesIsTaken) {
    module.config.LastCopyToPath.clear();
    platform.disks.PutFolder("C:\\Of the image");
    module.CurrentImage = "C:\\Of the image\\a.bmp";
    InDialog([](frmCopyFloppy& dialog) { EXPECT_EQ(dialog.Dir2.Path.Get(), "C:\\Of the image"); });
}

TEST_F(FloppyFromTest, NeverBeginsInTheTemporaryFolder) {
    module.config.LastCopyToPath.clear();
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    InDialog([](frmCopyFloppy& dialog) { EXPECT_EQ(dialog.Dir2.Path.Get(), "C:\\Pics"); });
    module.config.LastCopyToPath = "C:\\TEMP\\";
    InDialog([](frmCopyFloppy& dialog) { EXPECT_EQ(dialog.Dir2.Path.Get(), "C:\\Pics"); });
}

TEST_F(FloppyFromTest, AFolderThatIsGoneLeavesTheLists) {
    module.config.LastCopyToPath = "C:\\GONE\\";
    InDialog([](frmCopyFloppy& dialog) { EXPECT_EQ(dialog.Dir2.Path.Get(), "C:\\Pics"); });
}

TEST_F(FloppyFromTest, CopiesWhatIsSelected) {
    WatchProgress();
    ExpectQuestion();
    Copy({"x.bmp", "y.gif"});
    EXPECT_EQ(At("C:\\To\\x.bmp"), "disk x.bmp");
    EXPECT_EQ(At("C:\\To\\y.gif"), "disk y.gif");
    EXPECT_EQ(At("A:\\x.bmp"), "disk x.bmp");
    EXPECT_EQ(At("C:\\To\\readme.txt"), std::nullopt);
    EXPECT_EQ(progress,
              (Names{"Tavrix is preparing to copy files...", "Tavrix is copying the file:\r\n\r\nx.bmp",
                     "Tavrix is copying the file:\r\n\r\ny.gif"}));
}

TEST_F(FloppyFromTest, OneFileIsNamedInTheQuestion) {
    ExpectAsked("Copy the file:\r\n\r\ny.gif\r\n\r\n...to the following directory?\r\n\r\nC:\\TO\\",
                Answer::No);
    Copy({"y.gif"});
    EXPECT_EQ(At("C:\\To\\y.gif"), std::nullopt);
}

TEST_F(FloppyFromTest, NoLeavesTheDialogAsItIs) {
    module.config.LastCopyToPath = "C:\\Pics\\";
    InDialog([this](frmCopyFloppy& dialog) {
        dialog.Dir2.Path = "C:\\To";
        ExpectQuestion(Answer::No);
        Select(dialog.Files, {"x.bmp", "y.gif"});
        Press(dialog.CmdCopy);
        ASSERT_NE(app.Loaded<frmCopyFloppy>(), nullptr);
        EXPECT_EQ(dialog.Files.Names(), (Names{"x.bmp", "y.gif"}));
    });
    EXPECT_EQ(module.config.LastCopyToPath, "C:\\Pics\\");
}

TEST_F(FloppyFromTest, RefusesWhatCannotBeCopied) {
    InDialog([this](frmCopyFloppy& dialog) {
        ExpectTold("No source files are selected, nothing to copy...");
        Press(dialog.CmdCopy);
        dialog.Lists.GoTo("A:\\");
        dialog.Files.File1.SelectAll();
        ExpectTold(
            "The source and destination paths are the same, no need to copy images to selected "
            "destination...");
        Press(dialog.CmdCopy);
        for (const char* name : {"A:\\x.bmp", "A:\\y.gif"})
            platform.disks.Remove(name);
        Press(dialog.CmdNewDisk);
        ExpectTold("There are no valid image files in the root directory of the floppy, nothing to copy...");
        Press(dialog.CmdCopy);
        ExpectTold("There are no files in the source directory to select...");
        Press(dialog.Files.Selection.CmdAll);
    });
}

TEST_F(FloppyFromTest, AnotherDiskIsNoticedAfterTheQuestion) {
    InDialog([this](frmCopyFloppy& dialog) {
        dialog.Files.File1.SelectAll();
        Expect({.text = "Copy 2 files to the following directory?\r\n\r\nC:\\TO\\",
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNo,
                .reply = Answer::Yes,
                .whileOpen = [this] { platform.disks.InsertDisk('A'); }});
        ExpectTold(NothingThere);
        Press(dialog.CmdCopy);
        // The dialog is there, and its lists are as they were.
        EXPECT_EQ(dialog.Files.Names(), (Names{"x.bmp", "y.gif"}));
        platform.disks.PullDisk('A');
        ExpectQuestion();
        ExpectNoDisk(Answer::Ok);
        ExpectNoDisk(Answer::Cancel);
        Press(dialog.CmdCopy);
        EXPECT_NE(app.Loaded<frmCopyFloppy>(), nullptr);
    });
    EXPECT_TRUE(module.config.LastCopyToPath == "C:\\TO\\");
}

TEST_F(FloppyFromTest, TheFolderIsKeptBeforeTheFirstFile) {
    platform.disks.PutFolder("C:\\Other");
    platform.disks.PutFolder("C:\\Other\\x.bmp");
    InDialog([this](frmCopyFloppy& dialog) {
        dialog.Dir2.Path = "C:\\Other";
        Select(dialog.Files, {"x.bmp"});
        ExpectAsked("Copy the file:\r\n\r\nx.bmp\r\n\r\n...to the following directory?\r\n\r\nC:\\OTHER\\");
        ExpectTold("Aborting, unable to copy the file:\r\n\r\nA:\\x.bmp\r\n\r\nPath/File access error...",
                   BoxIcon::Stop);
        Press(dialog.CmdCopy);
        EXPECT_EQ(app.Loaded<frmCopyFloppy>(), nullptr);
    });
    EXPECT_EQ(module.config.LastCopyToPath, "C:\\OTHER\\");
}

TEST_F(FloppyFromTest, WhatIsThereIsAskedAbout) {
    for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
        platform.disks.PutFile("C:\\To\\x.bmp", "old");
        platform.disks.PutFolder("C:\\To");
        ExpectQuestion();
        ExpectReplaceAs("x.bmp", answer);
        Copy({"x.bmp", "y.gif"});
        EXPECT_EQ(At("C:\\To\\x.bmp"), answer == Answer::Yes ? "disk x.bmp" : "old");
        EXPECT_EQ(At("C:\\To\\y.gif").has_value(), answer != Answer::Cancel);
        for (const char* name : {"C:\\To\\x.bmp", "C:\\To\\y.gif"})
            if (At(name)) platform.disks.Remove(name);
    }
}

TEST_F(FloppyFromTest, TheWaitWindowCancels) {
    ExpectQuestion();
    WhenAt("x.bmp", [this] { PressCancel(); });
    ExpectTold("Filecopy was canceled, all files were not copied...", BoxIcon::Exclamation);
    Copy({"x.bmp", "y.gif"});
    EXPECT_EQ(At("C:\\To\\y.gif"), std::nullopt);
}

TEST_F(FloppyFromTest, APulledDiskIsAskedForAndTheCopyGoesOn) {
    bool pulled = false;
    WhenAt("y.gif", [&] {
        pulled = true;
        platform.disks.PullDisk('A');
    });
    ExpectQuestion();
    ExpectNoDisk(Answer::Ok);
    ExpectNoDisk(Answer::Ok, [this] { platform.disks.InsertDisk('A', disk); });
    Copy({"x.bmp", "y.gif"});
    EXPECT_TRUE(pulled);
    EXPECT_EQ(At("C:\\To\\x.bmp"), "disk x.bmp");
    EXPECT_EQ(At("C:\\To\\y.gif"), "disk y.gif");
}

TEST_F(FloppyFromTest, CancelAtThePromptEndsIt) {
    WhenAt("y.gif", [&] { platform.disks.PullDisk('A'); });
    ExpectQuestion();
    ExpectNoDisk(Answer::Cancel);
    Copy({"x.bmp", "y.gif"});
    EXPECT_EQ(At("C:\\To\\y.gif"), std::nullopt);
    EXPECT_EQ(app.Loaded<frmCopyFloppy>(), nullptr);
}

TEST_F(FloppyFromTest, AnotherDiskWithoutTheFileIsAFailure) {
    WhenAt("y.gif", [&] {
        platform.disks.InsertDisk('A');
        PutOnDisk({"z.bmp", "Y.GIF"});
    });
    ExpectQuestion();
    ExpectTold("Aborting, unable to copy the file:\r\n\r\nA:\\y.gif\r\n\r\nFile not found...", BoxIcon::Stop);
    Copy({"x.bmp", "y.gif"});
    EXPECT_EQ(At("C:\\To\\y.gif"), std::nullopt);  // its look-alike is not taken for it
}

TEST_F(FloppyFromTest, WithoutADiskTheDialogCloses) {
    PutOnDisk({"x.bmp"});
    int shown = 0;
    toolkit.OnModal("frmCopyFloppy", [&] { ++shown; });
    // The command has seen the disk, and then it went.
    platform.faults.AtNth(Service::Files, 3, [&] { platform.disks.PullDisk('A'); });
    ExpectTold("Floppy drive A:\\ could not be read, unable to copy files...", BoxIcon::Exclamation);
    View().menu.mnuCopyFromFloppy.Deliver(forms::ClickEvent{});
    EXPECT_EQ(app.Loaded<frmCopyFloppy>(), nullptr);
    EXPECT_FALSE(module.Busy());
}

TEST_F(FloppyFromTest, ReadsAnotherDisk) {
    InDialog([this](frmCopyFloppy& dialog) {
        dialog.Files.File1.SelectAll();
        platform.disks.InsertDisk('A');
        PutOnDisk({"x.bmp", "z.bmp"});
        Press(dialog.CmdNewDisk);
        EXPECT_EQ(Listed(dialog.Files), (Names{"x.bmp", "z.bmp"}));
        EXPECT_TRUE(dialog.Files.Names().empty());
        platform.disks.PullDisk('A');
        ExpectTold("Unable to refresh file list.\r\n\r\nDisk not ready...", BoxIcon::Stop);
        Press(dialog.CmdNewDisk);
    });
}

TEST_F(FloppyFromTest, TheButtonsSelect) {
    InDialog([](frmCopyFloppy& dialog) {
        Press(dialog.Files.Selection.CmdAll);
        EXPECT_EQ(dialog.Files.Names(), (Names{"x.bmp", "y.gif"}));
        dialog.Files.File1.Select(0, false);
        Press(dialog.Files.Selection.CmdInverse);
        EXPECT_EQ(dialog.Files.Names(), (Names{"x.bmp"}));
        Press(dialog.Files.Selection.CmdNone);
        EXPECT_TRUE(dialog.Files.Names().empty());
    });
}

TEST_F(FloppyFromTest, AFolderIsMadeOnTheDestinationSide) {
    InDialog([this](frmCopyFloppy& dialog) {
        toolkit.ExpectInput(
            {.prompt = "Enter the name of the folder to create:", .text = "New Folder", .reply = "New"});
        Press(dialog.CmdNewFolder);
        EXPECT_EQ(UpperCase(dialog.Dir2.Path.Get()), "C:\\TO\\NEW");
        EXPECT_TRUE(platform.disks.Exists("C:\\To\\New"));
    });
}

TEST_F(FloppyFromTest, TheDeleteKeyDeletesTheCurrentFile) {
    const auto press = [](frmCopyFloppy& dialog) {
        dialog.Files.File1.SetFocus();
        dialog.Deliver(forms::KeyEvent{true, 46, 0, nullptr});
        dialog.Deliver(forms::KeyEvent{false, 46, 0, nullptr});
    };
    InDialog([&](frmCopyFloppy& dialog) {
        ExpectTold(
            "Unable to delete file by pressing the delete key, nothing is selected in the file list...");
        press(dialog);
        module.CurrentImage = "a:\\X.bmp";
        dialog.Files.File1.ListIndex = 0;
        ExpectTold("Unable to delete this file, image is currently open...");
        press(dialog);
        EXPECT_EQ(At("A:\\x.bmp"), "disk x.bmp");
        module.CurrentImage.clear();
    });
}

TEST_F(FloppyFromTest, ADiskThatComesAfterTheDialogIsListed) {
    platform.disks.PullDisk('A');
    auto& dialog = app.Load<frmCopyFloppy>(module);
    platform.disks.InsertDisk('A', disk);
    dialog.Show();
    EXPECT_EQ(Listed(dialog.Files), (Names{"x.bmp", "y.gif"}));
    app.Unload(dialog);
}

TEST_F(FloppyFromTest, TheMouseSelectsAndTheDragHasItsPicture) {
    InDialog([](frmCopyFloppy& dialog) {
        forms::FileListBox& files = dialog.Files.File1;
        files.ListIndex = 1;
        files.SelectNone();
        files.Deliver(forms::MouseEvent{forms::MouseAction::Move, forms::MouseButton::Left, 0, 5, 5, 1});
        EXPECT_EQ(dialog.Files.Names(), (Names{"y.gif"}));
        for (const int shift : {forms::ShiftMask::Ctrl, forms::ShiftMask::Alt}) {
            constexpr int Far = 40;
            files.Deliver(
                forms::MouseEvent{forms::MouseAction::Down, forms::MouseButton::Left, shift, 5, 5, 1});
            files.Deliver(
                forms::MouseEvent{forms::MouseAction::Move, forms::MouseButton::Left, shift, 5, 5 + Far, 1});
            EXPECT_EQ(files.DragIcon.Empty(), shift == forms::ShiftMask::Alt);
            forms::DragEvent ended;
            ended.action = forms::DragAction::Ended;
            files.Deliver(ended);
        }
    });
}

}  // namespace
}  // namespace tavrix::test
