#include <set>

#include "FloppyTest.h"
#include "filing/floppies/Staging.h"
#include "filing/floppies/frmDiskcopy.h"

namespace tavrix::test {

template <>
std::string FloppyTest::DialogName<frmDiskcopy>() {
    return "frmDiskcopy";
}

namespace {

using Names = std::vector<std::string>;

class FloppyToFloppyTest : public FloppyTest {
  protected:
    FloppyToFloppyTest() {
        other = platform.disks.InsertDisk('A');
        platform.disks.InsertDisk('A', disk);
        PutOnDisk({"x.bmp", "y.gif", "z.jpg"});
    }

    void InDialog(const std::function<void(frmDiskcopy&)>& use) {
        FloppyTest::InDialog<frmDiskcopy>(View().menu.mnuDiskcopyFloppy, use);
    }
    /// Copies these files; whether the dialog closed by that.
    bool Copy(const Names& names) {
        bool closed = false;
        InDialog([&](frmDiskcopy& dialog) {
            Select(dialog.Files, names);
            Press(dialog.CmdCopy);
            closed = app.Loaded<frmDiskcopy>() == nullptr;
        });
        return closed;
    }
    void ExpectSource(std::function<void()> whileOpen = {}) {
        Expect({.text = "Make sure the SOURCE disk is inserted and then press the OK button to continue.",
                .whileOpen = std::move(whileOpen)});
    }
    void ExpectDestination(Answer reply, std::function<void()> whileOpen = {}) {
        ExpectPrompt("Insert the DESTINATION disk and then press the OK button to continue.", reply,
                     std::move(whileOpen));
    }
    void ExpectQuestion(Answer reply = Answer::Yes) {
        ExpectAsked("Copy 2 files to another floppy disk?", reply);
    }
    void ExpectReplaceAs(const std::string& name, Answer reply) {
        ExpectReplace("on the destination floppy", name,
                      "Replace this file with the one from the source disk?", reply);
    }
    void Swap() { platform.disks.InsertDisk('A', other); }
    /// What a disk holds, whichever is in the drive.
    std::optional<std::string> OnOther(const std::string& name) {
        const auto inside = platform.disks.PullDisk('A');
        platform.disks.InsertDisk('A', other);
        const auto content = At("A:\\" + name);
        platform.disks.InsertDisk('A', inside);
        return content;
    }
    Names InTemp() {
        Names names;
        for (const auto& [path, content] : platform.disks.AllFiles())
            if (path.starts_with("C:\\Temp\\")) names.push_back(path.substr(8));
        return names;
    }

    std::shared_ptr<headless::MemoryDisk> other;
};

TEST_F(FloppyToFloppyTest, SaysWhatItIs) {
    InDialog([this](frmDiskcopy& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Copy Images From Floppy To Floppy");
        EXPECT_EQ(dialog.CmdCopy.Caption.Get(), "C&opy");
        EXPECT_EQ(dialog.CmdCopy.ToolTip.Get(), "Copy the selected files to another floppy disk.");
        EXPECT_EQ(dialog.CmdCancel.Caption.Get(), "&Cancel");
        EXPECT_EQ(dialog.CmdCancel.ToolTip.Get(), "Click here to cancel file copy.");
        EXPECT_EQ(dialog.Files.Selection.CmdAll.Caption.Get(), "Select &All");
        EXPECT_EQ(dialog.Files.Selection.CmdAll.ToolTip.Get(), "Select all of the files.");
        EXPECT_EQ(dialog.Files.Selection.CmdNone.Caption.Get(), "Select &None");
        EXPECT_EQ(dialog.Files.Selection.CmdNone.ToolTip.Get(), "Don't select any files.");
        EXPECT_EQ(dialog.Files.Selection.CmdInverse.Caption.Get(), "&Inverse");
        EXPECT_EQ(dialog.Files.Selection.CmdInverse.ToolTip.Get(), "Inverse selections.");
        EXPECT_EQ(dialog.CmdNewDisk.Caption.Get(), "&Read Another Disk");
        EXPECT_EQ(dialog.CmdNewDisk.ToolTip.Get(), "Read the contents of another floppy disk.");
        EXPECT_EQ(dialog.HelpContext, 670U);
        Press(dialog.CmdHelp);
        EXPECT_EQ(platform.help.calls.back().data, 670U);
    });
}

TEST_F(FloppyToFloppyTest, FilesGoFromOneDiskToTheOther) {
    WatchProgress();
    ExpectSource();
    ExpectQuestion();
    ExpectDestination(Answer::Ok, [this] {
        EXPECT_EQ(InTemp(), (Names{"X.BMP", "Y.GIF"}));
        EXPECT_EQ(At("C:\\Temp\\X.BMP"), "disk x.bmp");
        EXPECT_EQ(toolkit.VisibleWindow("WaitCopyFrm"), nullptr);
        Swap();
    });
    EXPECT_TRUE(Copy({"x.bmp", "y.gif"}));
    EXPECT_EQ(OnOther("x.bmp"), "disk x.bmp");
    EXPECT_EQ(OnOther("y.gif"), "disk y.gif");
    EXPECT_EQ(OnOther("z.jpg"), std::nullopt);
    EXPECT_TRUE(InTemp().empty());
    EXPECT_EQ(progress,
              (Names{"Tavrix is preparing to copy files...", "Tavrix is copying the file:\r\n\r\nx.bmp",
                     "Tavrix is copying the file:\r\n\r\ny.gif", "Tavrix is preparing to transfer files...",
                     "Tavrix is writing the file:\r\n\r\nx.bmp", "Tavrix is writing the file:\r\n\r\ny.gif",
                     "Tavrix is removing temporary files..."}));
}

TEST_F(FloppyToFloppyTest, OneFileIsNamedInTheQuestionAndNoEndsNothing) {
    ExpectSource();
    ExpectAsked("Copy the file:\r\n\r\ny.gif\r\n\r\n...to another floppy disk?", Answer::No);
    EXPECT_FALSE(Copy({"y.gif"}));
    EXPECT_TRUE(InTemp().empty());
}

TEST_F(FloppyToFloppyTest, CancelAtTheDestinationWritesNothing) {
    ExpectSource();
    ExpectQuestion();
    ExpectDestination(Answer::Cancel, [this] { Swap(); });
    EXPECT_TRUE(Copy({"x.bmp", "y.gif"}));
    EXPECT_EQ(OnOther("x.bmp"), std::nullopt);
    EXPECT_TRUE(InTemp().empty());
}

TEST_F(FloppyToFloppyTest, AFileOfTheDestinationStaysWithNo) {
    Swap();
    PutOnDisk({"x.bmp"});
    platform.disks.PutFile("A:\\x.bmp", "theirs");
    platform.disks.InsertDisk('A', disk);
    ExpectSource();
    ExpectQuestion();
    ExpectDestination(Answer::Ok, [this] { Swap(); });
    ExpectReplaceAs("x.bmp", Answer::No);
    EXPECT_TRUE(Copy({"x.bmp", "y.gif"}));
    EXPECT_EQ(OnOther("x.bmp"), "theirs");
    EXPECT_EQ(OnOther("y.gif"), "disk y.gif");

    platform.disks.InsertDisk('A', disk);
    ExpectSource();
    ExpectQuestion();
    ExpectDestination(Answer::Ok, [this] { Swap(); });
    ExpectReplaceAs("x.bmp", Answer::Yes);
    ExpectReplaceAs("y.gif", Answer::Cancel);
    EXPECT_TRUE(Copy({"x.bmp", "y.gif"}));
    EXPECT_EQ(OnOther("x.bmp"), "disk x.bmp");
    EXPECT_TRUE(InTemp().empty());
}

TEST_F(FloppyToFloppyTest, OnTheSameDiskEveryFileExists) {
    ExpectSource();
    ExpectQuestion();
    ExpectDestination(Answer::Ok);
    ExpectReplaceAs("x.bmp", Answer::Yes);
    ExpectReplaceAs("y.gif", Answer::No);
    EXPECT_TRUE(Copy({"x.bmp", "y.gif"}));
    EXPECT_EQ(At("A:\\x.bmp"), "disk x.bmp");
}

TEST_F(FloppyToFloppyTest, AFileOfThatNameInTheTemporaryFolderIsOverwrittenAndGoes) {
    platform.disks.PutFile("C:\\Temp\\x.bmp", "somebody's");
    platform.disks.PutFile("C:\\Temp\\Z.JPG", "not chosen");
    ExpectSource();
    ExpectQuestion();
    ExpectDestination(Answer::Ok, [this] {
        EXPECT_EQ(InTemp().size(), 3U);
        EXPECT_NE(At("C:\\Temp\\X.BMP"), "somebody's");
        Swap();
    });
    EXPECT_TRUE(Copy({"x.bmp", "y.gif"}));
    EXPECT_EQ(InTemp(), (Names{"Z.JPG"}));
}

TEST_F(FloppyToFloppyTest, NamesThatDifferInCaseAloneAreStagedApart) {
    PutOnDisk({"a.jpg", "A.JPG", "A 2.JPG"});
    ExpectSource();
    ExpectAsked("Copy 3 files to another floppy disk?");
    ExpectDestination(Answer::Ok, [this] {
        Names contents;
        for (const std::string& name : InTemp())
            contents.push_back(*At("C:\\Temp\\" + name));
        std::ranges::sort(contents);
        EXPECT_EQ(contents, (Names{"disk A 2.JPG", "disk A.JPG", "disk a.jpg"}));
        Swap();
    });
    // To the other disk they are one name.
    ExpectReplaceAs("a.jpg", Answer::No);
    EXPECT_TRUE(Copy({"a.jpg", "A.JPG", "A 2.JPG"}));
    for (const std::string name : {"A.JPG", "A 2.JPG"})
        EXPECT_EQ(OnOther(name), "disk " + name);
    EXPECT_TRUE(InTemp().empty());
}

TEST_F(FloppyToFloppyTest, ThreeSpellingsHaveThreePlaces) {
    const Names names{"a.jpg", "A.JPG", "A.jpg", "a.JPG", "A 2.JPG"};
    const Staging staging(module, names);
    std::set<std::string> places;
    for (const std::string& name : names)
        places.insert(UpperCase(staging.PathOf(name)));
    EXPECT_EQ(places.size(), names.size());
}

TEST_F(FloppyToFloppyTest, AFileOfAnotherSpellingIsNotRemovedInThePlaceOfACopyThatHasGone) {
    Staging staging(module, {"x.bmp"});
    staging.SetAside();
    staging.Staged(staging.PathOf("x.bmp"));
    platform.disks.PutFile("C:\\Temp\\x.bmp", "somebody's");
    staging.Clear();
    EXPECT_EQ(At("C:\\Temp\\x.bmp"), "somebody's");
}

TEST_F(FloppyToFloppyTest, TheFirstPromptRefreshesAndKeepsTheSelection) {
    InDialog([this](frmDiskcopy& dialog) {
        Select(dialog.Files, {"x.bmp", "z.jpg"});
        dialog.Files.File1.ListIndex = 2;
        ExpectSource([this] {
            platform.disks.InsertDisk('A');
            PutOnDisk({"a.bmp", "X.BMP", "z.jpg"});
        });
        ExpectAsked("Copy the file:\r\n\r\nz.jpg\r\n\r\n...to another floppy disk?", Answer::No);
        Press(dialog.CmdCopy);
        EXPECT_EQ(Listed(dialog.Files), (Names{"a.bmp", "X.BMP", "z.jpg"}));
        EXPECT_EQ(dialog.Files.Names(), (Names{"z.jpg"}));
        EXPECT_EQ(dialog.Files.File1.FileName(), "z.jpg");
        // Any other refresh keeps nothing.
        Press(dialog.CmdNewDisk);
        EXPECT_TRUE(dialog.Files.Names().empty());
        EXPECT_EQ(dialog.Files.File1.FileName(), "");
    });
}

TEST_F(FloppyToFloppyTest, RefusesWhatCannotBeCopied) {
    InDialog([this](frmDiskcopy& dialog) {
        ExpectSource();
        ExpectTold("No source files are selected, nothing to copy...");
        Press(dialog.CmdCopy);
        dialog.Files.File1.SelectAll();
        ExpectSource([this] {
            platform.disks.InsertDisk('A');
            PutOnDisk({"readme.txt"});
        });
        ExpectTold(
            "There are no valid image files in the root directory of the source floppy, nothing to copy...");
        Press(dialog.CmdCopy);
    });
}

TEST_F(FloppyToFloppyTest, AnEmptyDiskAfterTheQuestionIsTold) {
    InDialog([this](frmDiskcopy& dialog) {
        Select(dialog.Files, {"x.bmp", "y.gif"});
        ExpectSource();
        Expect({.text = "Copy 2 files to another floppy disk?",
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNo,
                .reply = Answer::Yes,
                .whileOpen = [this] { platform.disks.InsertDisk('A'); }});
        ExpectTold(
            "There are no files on the source disk to copy.\r\n\r\n"
            "Insert correct disk and then try again...");
        Press(dialog.CmdCopy);
        EXPECT_EQ(dialog.Files.Names(), (Names{"x.bmp", "y.gif"}));
    });
}

TEST_F(FloppyToFloppyTest, ADiskIsAskedForAtEachStep) {
    ExpectSource([this] { platform.disks.PullDisk('A'); });
    ExpectNoDisk(Answer::Ok, [this] { platform.disks.InsertDisk('A', disk); });
    Expect({.text = "Copy 2 files to another floppy disk?",
            .icon = BoxIcon::Question,
            .buttons = BoxButtons::YesNo,
            .reply = Answer::Yes,
            .whileOpen = [this] { platform.disks.PullDisk('A'); }});
    ExpectNoDisk(Answer::Ok, [this] { platform.disks.InsertDisk('A', disk); });
    ExpectDestination(Answer::Ok, [this] { platform.disks.PullDisk('A'); });
    ExpectNoDisk(Answer::Ok);
    ExpectNoDisk(Answer::Ok, [this] { Swap(); });
    EXPECT_TRUE(Copy({"x.bmp", "y.gif"}));
    EXPECT_EQ(OnOther("x.bmp"), "disk x.bmp");
    EXPECT_EQ(OnOther("y.gif"), "disk y.gif");
}

TEST_F(FloppyToFloppyTest, CancelAtAPromptRemovesWhatIsStaged) {
    ExpectSource([this] { platform.disks.PullDisk('A'); });
    ExpectNoDisk(Answer::Cancel);
    EXPECT_FALSE(Copy({"x.bmp", "y.gif"}));
    platform.disks.InsertDisk('A', disk);
    ExpectSource();
    ExpectQuestion();
    ExpectDestination(Answer::Ok, [this] { platform.disks.PullDisk('A'); });
    ExpectNoDisk(Answer::Cancel);
    EXPECT_TRUE(Copy({"x.bmp", "y.gif"}));
    EXPECT_TRUE(InTemp().empty());
}

TEST_F(FloppyToFloppyTest, TheWaitWindowCancelsEitherPass) {
    for (const bool second : {false, true}) {
        platform.disks.InsertDisk('A', disk);
        ExpectSource();
        ExpectQuestion();
        if (second) {
            ExpectDestination(Answer::Ok, [&] {
                Swap();
                WhenAt("x.bmp", [this] { PressCancel(); });
            });
        } else {
            WhenAt("y.gif", [this] {
                EXPECT_EQ(InTemp(), (Names{"X.BMP"}));
                PressCancel();
            });
        }
        Expect({.text = "File copy was canceled, all files were not copied...",
                .icon = BoxIcon::Exclamation,
                .whileOpen = [this] { EXPECT_TRUE(InTemp().empty()) << "removed before that is told"; }});
        EXPECT_TRUE(Copy({"x.bmp", "y.gif"}));
        EXPECT_EQ(OnOther("y.gif"), std::nullopt);
        EXPECT_TRUE(InTemp().empty());
    }
}

TEST_F(FloppyToFloppyTest, AFailureInEitherPassIsToldWithTheName) {
    ExpectSource();
    ExpectQuestion();
    WhenAt("y.gif", [this] { platform.disks.Remove("A:\\y.gif"); });
    ExpectTold("Aborting, unable to copy the file:\r\n\r\ny.gif\r\n\r\nFile not found...", BoxIcon::Stop);
    EXPECT_TRUE(Copy({"x.bmp", "y.gif"}));
    EXPECT_TRUE(InTemp().empty());

    PutOnDisk({"y.gif"});
    ExpectSource();
    ExpectQuestion();
    ExpectDestination(Answer::Ok, [this] {
        Swap();
        platform.disks.SetCapacity('A', 12);
    });
    ExpectTold("Aborting, unable to write the destination file:\r\n\r\ny.gif\r\n\r\nDisk full...",
               BoxIcon::Stop);
    EXPECT_TRUE(Copy({"x.bmp", "y.gif"}));
    EXPECT_TRUE(InTemp().empty());
    EXPECT_EQ(OnOther("x.bmp"), "disk x.bmp");
}

// What an edit needs of the temporary folder.

class StagingTest : public FloppyToFloppyTest {
  protected:
    StagingTest() {
        PutOnDisk({"UNTITLED.BMP"});
        platform.disks.PutFile(Working, "the edit");
        module.CurrentImage = Working;
    }
    static constexpr const char* Working = "C:\\Temp\\Untitled.BMP";
};

TEST_F(StagingTest, TheWorkingFileIsThereAtEveryEnd) {
    const std::string question = "Copy the file:\r\n\r\nUNTITLED.BMP\r\n\r\n...to another floppy disk?";
    for (int end = 0; end < 4; ++end) {
        platform.disks.InsertDisk('A', disk);
        ExpectSource();
        ExpectAsked(question);
        if (end == 0) {
            ExpectDestination(Answer::Ok, [this] {
                EXPECT_EQ(At("C:\\Temp\\UNTITLED.BMP"), "disk UNTITLED.BMP");
                Swap();
            });
        } else if (end == 1) {
            ExpectDestination(Answer::Cancel);
        } else if (end == 2) {
            WhenAt("UNTITLED.BMP", [this] { PressCancel(); });
            ExpectTold("File copy was canceled, all files were not copied...", BoxIcon::Exclamation);
        } else {
            WhenAt("UNTITLED.BMP", [this] { platform.disks.Remove("A:\\UNTITLED.BMP"); });
            ExpectTold("Aborting, unable to copy the file:\r\n\r\nUNTITLED.BMP\r\n\r\nFile not found...",
                       BoxIcon::Stop);
        }
        EXPECT_TRUE(Copy({"UNTITLED.BMP"}));
        EXPECT_EQ(InTemp(), (Names{"Untitled.BMP"})) << end;
        EXPECT_EQ(At(Working), "the edit") << end;
    }
    EXPECT_EQ(OnOther("UNTITLED.BMP"), "disk UNTITLED.BMP");
}

TEST_F(StagingTest, TheUndoFileIsKeptLikewise) {
    platform.disks.PutFile("C:\\Temp\\~undo.tmp", "before");
    Staging staging(module, {"~UNDO.TMP", "UNTITLED.BMP"});
    staging.SetAside();
    EXPECT_EQ(InTemp(), (Names{"Untitled.BMP.aside", "~undo.tmp.aside"}));
    for (const std::string name : {"~UNDO.TMP", "UNTITLED.BMP"}) {
        EXPECT_EQ(staging.PathOf(name), "C:\\Temp\\" + name);
        platform.disks.PutFile(staging.PathOf(name), "copy");
        staging.Staged(staging.PathOf(name));
    }
    staging.Clear();
    EXPECT_EQ(InTemp(), (Names{"Untitled.BMP", "~undo.tmp"}));
    EXPECT_EQ(At(Working), "the edit");
    EXPECT_EQ(At("C:\\Temp\\~undo.tmp"), "before");
}

TEST_F(StagingTest, OtherNamesLeaveThemWhereTheyAre) {
    Staging staging(module, {"x.bmp"});
    staging.SetAside();
    EXPECT_EQ(InTemp(), (Names{"Untitled.BMP"}));
}

TEST_F(StagingTest, TheNextStartPutsBackWhatAKillLeft) {
    {
        Staging staging(module, {"UNTITLED.BMP"});
        staging.SetAside();
        platform.disks.PutFile("C:\\Temp\\UNTITLED.BMP", "copy");
        // Whatever was there when the process was killed is there at the next start.
        const auto killed = platform.disks.AllFiles();
        staging.Clear();
        for (const auto& [path, content] : platform.disks.AllFiles())
            if (path.starts_with("C:\\Temp\\")) platform.disks.Remove(path);
        for (const auto& [path, content] : killed)
            if (path.starts_with("C:\\Temp\\")) platform.disks.PutFile(path, content);
    }
    ASSERT_EQ(InTemp(), (Names{"UNTITLED.BMP", "Untitled.BMP.aside"}));
    lives.ShowMainView();
    EXPECT_EQ(InTemp(), (Names{"Untitled.BMP"}));
    EXPECT_EQ(At(Working), "the edit");
}

TEST_F(StagingTest, ANewerWorkingFileIsNotReplaced) {
    platform.disks.PutFile("C:\\Temp\\Untitled.BMP.aside", "an older one");
    PutBackSetAside(module);
    EXPECT_EQ(At(Working), "the edit");
    EXPECT_EQ(At("C:\\Temp\\Untitled.BMP.aside"), "an older one");
}

}  // namespace
}  // namespace tavrix::test
