#include "FloppyTest.h"
#include "filing/floppies/frmPutOnFloppy.h"

namespace tavrix::test {

template <>
std::string FloppyTest::DialogName<frmPutOnFloppy>() {
    return "frmPutOnFloppy";
}

namespace {

using Names = std::vector<std::string>;

class FloppyToTest : public FloppyTest {
  protected:
    void InDialog(const std::function<void(frmPutOnFloppy&)>& use) {
        FloppyTest::InDialog<frmPutOnFloppy>(View().menu.mnuCopyImgToFloppy, use);
    }
    /// Selects files and presses Copy; whether the dialog closed by that.
    bool Copy(const Names& names) {
        bool closed = false;
        InDialog([&](frmPutOnFloppy& dialog) {
            Select(dialog.Files, names);
            Press(dialog.CmdCopy);
            closed = app.Loaded<frmPutOnFloppy>() == nullptr;
        });
        return closed;
    }
    void PutSized(const std::string& name, std::size_t bytes) {
        platform.disks.PutFile("C:\\Pics\\" + name, std::string(bytes, 'x'));
    }
    void ExpectQuestion(Answer reply = Answer::Yes) {
        ExpectAsked("Copy 2 files to floppy disk A:\\ ?", reply);
    }
    void ExpectReplaceAs(const std::string& name, Answer reply) {
        ExpectReplace("in the destination folder", name, "Replace this file with the one currently selected?",
                      reply);
    }
    static constexpr const char* OneTooLarge =
        "The selected file is too large too fit on a 1.4 megabyte floppy disk.\r\n\r\nUnable to copy file...";
    static constexpr const char* SeveralTooLarge =
        "The selected files are too large too fit on a 1.4 megabyte floppy disk.\r\n\r\n"
        "Reduce the number of files to copy and then try again...";
    static constexpr const char* NoRoomForOne =
        "There is not enough room on the destination disk to fit the selected file.\r\n\r\n"
        "Free some space and then try again...";
    static constexpr const char* NoRoomForSeveral =
        "There is not enough room on the destination disk to fit the selected files.\r\n\r\n"
        "Reduce the number of files to copy and then try again...";
    static constexpr const char* NoDiskOrFull =
        "The current floppy disk may be full, un-formatted or not present in the drive.\r\n\r\n"
        "Insert another disk and then try again...";
};

TEST_F(FloppyToTest, SaysWhatItIs) {
    module.CurrentImage = "C:\\Pics\\B.BMP";
    InDialog([this](frmPutOnFloppy& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Copy Images To Floppy");
        EXPECT_EQ(dialog.Frame1.Caption.Get(), "Select Source File(s):");
        EXPECT_EQ(dialog.Drive1.ToolTip.Get(), "Click here to select the \"source\" drive.");
        EXPECT_EQ(dialog.CmdCopy.Caption.Get(), "C&opy");
        EXPECT_EQ(dialog.HelpContext, 660U);
        Press(dialog.CmdHelp);
        EXPECT_EQ(platform.help.calls.back().data, 660U);
        // The image on show is selected.
        EXPECT_EQ(dialog.Files.Names(), (Names{"b.bmp"}));
        EXPECT_EQ(dialog.Files.File1.ListIndex, 1);
    });
}

TEST_F(FloppyToTest, TheWorkingFileIsNoImageToBeginWith) {
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    platform.disks.PutFile(module.CurrentImage, "edit");
    InDialog([](frmPutOnFloppy& dialog) {
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\Pics");
        EXPECT_TRUE(dialog.Files.Names().empty());
        EXPECT_EQ(dialog.Files.File1.ListIndex, 0);
    });
}

TEST_F(FloppyToTest, CopiesWhatIsSelected) {
    WatchProgress();
    ExpectQuestion();
    EXPECT_TRUE(Copy({"a.bmp", "c.bmp"}));
    EXPECT_EQ(At("A:\\a.bmp"), "pics a.bmp");
    EXPECT_EQ(At("A:\\b.bmp"), std::nullopt);
    EXPECT_EQ(At("A:\\c.bmp"), "pics c.bmp");
    EXPECT_EQ(progress,
              (Names{"Tavrix is preparing to copy files...", "Tavrix is copying the file:\r\n\r\na.bmp",
                     "Tavrix is copying the file:\r\n\r\nc.bmp"}));
    EXPECT_EQ(module.config.LastCopyToPath, "");
}

TEST_F(FloppyToTest, OneFileIsNamedInTheQuestionAndNoEndsNothing) {
    ExpectAsked("Copy the file:\r\n\r\na.bmp\r\n\r\n...to floppy disk A:\\ ?", Answer::No);
    EXPECT_FALSE(Copy({"a.bmp"}));
    EXPECT_EQ(At("A:\\a.bmp"), std::nullopt);
}

TEST_F(FloppyToTest, ManyFilesAreCountedInGroups) {
    Names names;
    for (int i = 0; i < 1000; ++i) {
        names.push_back("n" + std::to_string(i) + ".bmp");
        PutSized(names.back(), 1);
    }
    ExpectAsked("Copy 1,000 files to floppy disk A:\\ ?", Answer::No);
    Copy(names);
}

TEST_F(FloppyToTest, RefusesWhatCannotBeCopied) {
    PutOnDisk({"x.bmp"});
    platform.disks.PutFolder("C:\\Empty");
    InDialog([this](frmPutOnFloppy& dialog) {
        ExpectTold("No source files are selected, nothing to copy...");
        Press(dialog.CmdCopy);
        dialog.Lists.GoTo("A:\\");
        dialog.Files.File1.SelectAll();
        ExpectTold(
            "The source and destination paths are the same, no need to copy images to selected "
            "destination...");
        Press(dialog.CmdCopy);
        dialog.Lists.GoTo("C:\\Empty");
        ExpectTold("There are no valid image files in the selected directory, nothing to copy...");
        Press(dialog.CmdCopy);
    });
}

TEST_F(FloppyToTest, WhatADiskHoldsPassesAndAByteMoreDoesNot) {
    platform.disks.SetCapacity('A', 10'000'000);
    PutSized("one.bmp", 1'457'664);
    PutSized("more.bmp", 1'457'665);
    ExpectAsked("Copy the file:\r\n\r\none.bmp\r\n\r\n...to floppy disk A:\\ ?");
    EXPECT_TRUE(Copy({"one.bmp"}));
    EXPECT_EQ(At("A:\\one.bmp")->size(), 1'457'664U);
    ExpectTold(OneTooLarge);
    EXPECT_FALSE(Copy({"more.bmp"}));
    // Several files are added up, the disk is not looked at.
    PutSized("half.bmp", 728'832);
    PutSized("rest.bmp", 728'833);
    platform.disks.PullDisk('A');
    platform.disks.InsertDisk('A');
    ExpectTold(SeveralTooLarge);
    EXPECT_FALSE(Copy({"half.bmp", "rest.bmp"}));
    PutSized("rest.bmp", 728'832);
    ExpectQuestion();
    EXPECT_TRUE(Copy({"half.bmp", "rest.bmp"}));
}

TEST_F(FloppyToTest, WhatFillsTheFreeSpacePassesAndAByteMoreDoesNot) {
    constexpr std::size_t Free = 196 * 512;
    platform.disks.SetCapacity('A', Free);
    PutSized("one.bmp", Free);
    PutSized("more.bmp", Free + 1);
    ExpectTold(NoRoomForOne);
    EXPECT_FALSE(Copy({"more.bmp"}));
    ExpectTold(NoRoomForSeveral);
    EXPECT_FALSE(Copy({"one.bmp", "a.bmp"}));
    ExpectAsked("Copy the file:\r\n\r\none.bmp\r\n\r\n...to floppy disk A:\\ ?");
    EXPECT_TRUE(Copy({"one.bmp"}));
    ExpectTold(NoDiskOrFull);
    EXPECT_FALSE(Copy({"a.bmp"}));
}

TEST_F(FloppyToTest, AHundredThousandBytesGoWhereThatManyAreFree) {
    platform.disks.SetCapacity('A', 100'000);
    PutSized("more.bmp", 100'001);
    ExpectTold(NoRoomForOne);
    EXPECT_FALSE(Copy({"more.bmp"}));
    PutSized("one.bmp", 100'000);
    ExpectAsked("Copy the file:\r\n\r\none.bmp\r\n\r\n...to floppy disk A:\\ ?");
    EXPECT_TRUE(Copy({"one.bmp"}));
    EXPECT_EQ(At("A:\\one.bmp")->size(), 100'000U);
}

TEST_F(FloppyToTest, ADiskOfWhichNothingIsKnownIsTold) {
    InDialog([this](frmPutOnFloppy& dialog) {
        platform.disks.PullDisk('A');
        Select(dialog.Files, {"a.bmp"});
        ExpectTold(NoDiskOrFull);
        Press(dialog.CmdCopy);
        EXPECT_NE(app.Loaded<frmPutOnFloppy>(), nullptr);
    });
}

TEST_F(FloppyToTest, AFileThatIsGoneIsTold) {
    InDialog([this](frmPutOnFloppy& dialog) {
        Select(dialog.Files, {"a.bmp"});
        platform.disks.Remove("C:\\Pics\\a.bmp");
        ExpectTold("Aborting, unable to copy the file:\r\n\r\nC:\\Pics\\a.bmp\r\n\r\nFile not found...",
                   BoxIcon::Stop);
        Press(dialog.CmdCopy);
        EXPECT_EQ(app.Loaded<frmPutOnFloppy>(), nullptr);
    });
}

TEST_F(FloppyToTest, WhatIsThereIsAskedAbout) {
    for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
        disk = platform.disks.InsertDisk('A');
        PutOnDisk({"a.bmp"});
        ExpectQuestion();
        ExpectReplaceAs("a.bmp", answer);
        EXPECT_TRUE(Copy({"a.bmp", "b.bmp"}));
        EXPECT_EQ(At("A:\\a.bmp"), answer == Answer::Yes ? "pics a.bmp" : "disk a.bmp");
        EXPECT_EQ(At("A:\\b.bmp").has_value(), answer != Answer::Cancel);
    }
}

TEST_F(FloppyToTest, WithoutADiskAfterTheQuestionOneIsAskedFor) {
    PutOnDisk({"a.bmp"});
    Expect({.text = "Copy 2 files to floppy disk A:\\ ?",
            .icon = BoxIcon::Question,
            .buttons = BoxButtons::YesNo,
            .reply = Answer::Yes,
            .whileOpen = [this] { platform.disks.PullDisk('A'); }});
    ExpectNoDisk(Answer::Ok);
    ExpectNoDisk(Answer::Ok, [this] { platform.disks.InsertDisk('A', disk); });
    ExpectReplaceAs("a.bmp", Answer::No);
    EXPECT_TRUE(Copy({"a.bmp", "b.bmp"}));
    EXPECT_EQ(At("A:\\a.bmp"), "disk a.bmp");
    EXPECT_EQ(At("A:\\b.bmp"), "pics b.bmp");

    Expect({.text = "Copy 2 files to floppy disk A:\\ ?",
            .icon = BoxIcon::Question,
            .buttons = BoxButtons::YesNo,
            .reply = Answer::Yes,
            .whileOpen = [this] { platform.disks.PullDisk('A'); }});
    ExpectNoDisk(Answer::Cancel);
    EXPECT_TRUE(Copy({"a.bmp", "c.bmp"}));
}

TEST_F(FloppyToTest, AFileOnTheDiskThatCameAtThePromptIsAskedAbout) {
    const auto other = platform.disks.InsertDisk('A');
    PutOnDisk({"b.bmp"});
    platform.disks.InsertDisk('A', disk);
    WhenAt("b.bmp", [&] { platform.disks.PullDisk('A'); });
    ExpectQuestion();
    ExpectNoDisk(Answer::Ok, [&] { platform.disks.InsertDisk('A', other); });
    ExpectReplaceAs("b.bmp", Answer::No);
    EXPECT_TRUE(Copy({"a.bmp", "b.bmp"}));
    EXPECT_EQ(At("A:\\b.bmp"), "disk b.bmp");
}

TEST_F(FloppyToTest, AFileIsAskedAboutOnceThoughTheDiskGoesMeanwhile) {
    PutOnDisk({"a.bmp"});
    ExpectQuestion();
    Expect(
        {.text =
             "The following file already exists in the destination folder:\r\n\r\na.bmp\r\n\r\nReplace this "
             "file with the one currently selected?",
         .icon = BoxIcon::Question,
         .buttons = BoxButtons::YesNoCancel,
         .reply = Answer::Yes,
         .whileOpen = [this] { platform.disks.PullDisk('A'); }});
    ExpectNoDisk(Answer::Ok, [this] { platform.disks.InsertDisk('A', disk); });
    EXPECT_TRUE(Copy({"a.bmp", "b.bmp"}));
    EXPECT_EQ(At("A:\\a.bmp"), "pics a.bmp");
    EXPECT_EQ(At("A:\\b.bmp"), "pics b.bmp");
}

TEST_F(FloppyToTest, ADiskThatRunsFullIsAFailure) {
    platform.disks.SetCapacity('A', 512 * 4);
    PutSized("one.bmp", 1000);
    PutSized("two.bmp", 1000);
    ExpectQuestion();
    WhenAt("two.bmp", [&] { platform.disks.PutFile("A:\\somebody's", std::string(500, 'x')); });
    ExpectTold("Aborting, unable to copy the file:\r\n\r\nC:\\Pics\\two.bmp\r\n\r\nDisk full...",
               BoxIcon::Stop);
    EXPECT_TRUE(Copy({"one.bmp", "two.bmp"}));
    EXPECT_EQ(At("A:\\one.bmp")->size(), 1000U);
    EXPECT_EQ(At("A:\\two.bmp"), std::nullopt);
}

TEST_F(FloppyToTest, TheRoomOfAReplacedFileIsNotCounted) {
    platform.disks.SetCapacity('A', 512 * 4);
    platform.disks.PutFile("A:\\one.bmp", std::string(1024, 'o'));
    PutSized("one.bmp", 1500);
    ExpectTold(NoRoomForOne);
    EXPECT_FALSE(Copy({"one.bmp"}));
}

TEST_F(FloppyToTest, TheWaitWindowCancels) {
    ExpectQuestion();
    WhenAt("a.bmp", [this] { PressCancel(); });
    ExpectTold("File copy was canceled, all files were not copied...", BoxIcon::Exclamation);
    EXPECT_TRUE(Copy({"a.bmp", "b.bmp"}));
    EXPECT_EQ(At("A:\\b.bmp"), std::nullopt);
}

TEST_F(FloppyToTest, ADriveThatCannotBeReadGoesToTheProgram) {
    platform.disks.AddDrive('E', DriveType::CdRom);
    platform.disks.PutFolder("C:\\Tavrix");
    InDialog([this](frmPutOnFloppy& dialog) {
        ExpectTold("The selected drive is currently not available...", BoxIcon::Exclamation);
        dialog.Drive1.Drive = "E:";
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\Tavrix");
    });
}

TEST_F(FloppyToTest, TheFavoriteFolderIsAClickAway) {
    platform.disks.PutFolder("C:\\Fav");
    module.config.FavoriteFolder = "C:\\Fav";
    InDialog([](frmPutOnFloppy& dialog) {
        Press(dialog.CmdFF);
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\Fav");
    });
}

}  // namespace
}  // namespace tavrix::test
