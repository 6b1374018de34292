// Deleting, renaming, copying and moving files.

#include <functional>
#include <utility>

#include "filing/deleting/DeleteFolderFrm.h"
#include "filing/deleting/DeleteImgFrm.h"
#include "filing/deleting/RenameImgFrm.h"
#include "filing/floppies/frmCopyFloppy.h"
#include "filing/floppies/frmDeleteFloppy.h"
#include "filing/floppies/frmDiskcopy.h"
#include "filing/floppies/frmPutOnFloppy.h"
#include "filing/moving/frmCopyImages.h"
#include "filing/moving/frmMoveCurrentImg.h"
#include "filing/moving/frmMoveImages.h"
#include "slow_folders/SlowFoldersTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class SlowDeleteTest : public SlowFoldersTest {
  protected:
    DeleteImgFrm& Open() {
        Start();
        auto& dialog = Show<DeleteImgFrm>(module);
        dialog.Chooser.Dir1.Path = Slow;
        return dialog;
    }
    static void ExpectSelectable(const FileSelection& selection, bool enabled) {
        for (const forms::CommandButton* button :
             {&selection.CmdAll, &selection.CmdNone, &selection.CmdInverse})
            EXPECT_EQ(button->Enabled, enabled) << button->Name();
    }
    static constexpr const char* NothingSelected =
        "Nothing was selected to delete.\r\n\r\nSelect the file(s) that you want to delete and then try "
        "again...";
    static constexpr const char* AskEmpty =
        "This directory is empty:\r\n\r\nC:\\slow\r\n\r\nWould you like to delete it?";
};

TEST_F(SlowDeleteTest, NothingIsSelectedOrDeletedBeforeTheFolderHasCome) {
    auto& dialog = Open();
    ExpectSelectable(dialog.Selection, false);
    Press(dialog.Selection.CmdAll);
    Press(dialog.CmdDelete);
    ExpectTold("Unable to delete file by pressing the delete key, nothing is selected in the file list...");
    Key(dialog.Chooser.File1, forms::KeyCode::Delete);
    Press(dialog.CmdDelete);
    Key(dialog.Chooser.Dir1, forms::KeyCode::Delete);
    // The last wish is that of the folder list's key.
    ExpectTold("Unable to delete the directory:\r\n\r\nC:\\slow\r\n\r\nThe selected path is not empty...");
    Come();
    ExpectSelectable(dialog.Selection, true);
    EXPECT_EQ(dialog.Chooser.File1.SelectedCount(), 0);
    EXPECT_EQ(Listed(dialog.Chooser.File1).size(), 3U);
}

TEST_F(SlowDeleteTest, NorBeforeTheOneThatItBeginsIn) {
    Start();
    platform.files.ChangeFolder(Slow);
    auto& dialog = Show<DeleteImgFrm>(module);
    ExpectSelectable(dialog.Selection, false);
    Come();
    ExpectSelectable(dialog.Selection, true);
}

TEST_F(SlowDeleteTest, AFolderThatCannotBeReadAnyMoreIsNotEmpty) {
    auto& dialog = Open();
    Come();
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        platform.disks.Remove(std::string("C:\\slow\\") + name);
    dialog.Chooser.File1.Refresh();
    static_cast<void>(dialog.Chooser.File1.ListCount());
    Come();
    platform.disks.SetUnreadable(Slow, true);
    ExpectTold("There are no files in the selected directory to delete.");
    Press(dialog.CmdDelete);
}

TEST_F(SlowDeleteTest, NobodyIsAskedAboutTheFolderWhileSomethingElseIsDone) {
    auto& dialog = Open();
    Come();
    dialog.Chooser.File1.SelectAll();
    ExpectQuestion(
        "You are about to delete 3 files from the directory:\r\n\r\nC:\\slow\\\r\n\r\nAre you sure?",
        Answer::Yes);
    Press(dialog.CmdDelete);
    {
        const forms::BusyGuard busy(module.Screen());
        Come();
        Come();
    }
    EXPECT_TRUE(IsThere(Slow));
}

TEST_F(SlowDeleteTest, DeleteWaitsAndFindsNothingSelected) {
    auto& dialog = Open();
    Press(dialog.CmdDelete);
    ExpectTold(NothingSelected);
    Come();
    EXPECT_TRUE(IsThere("C:\\slow\\a.bmp"));
}

TEST_F(SlowDeleteTest, ADeleteThatWaitsIsNotDoneInAnotherFolder) {
    auto& dialog = Open();
    Press(dialog.CmdDelete);
    dialog.Chooser.Dir1.Path = Quick;
    dialog.Chooser.File1.Select(0);
    Come();
    EXPECT_TRUE(IsThere("C:\\quick\\a.bmp"));
    EXPECT_TRUE(IsThere("C:\\slow\\a.bmp"));
}

TEST_F(SlowDeleteTest, TheFolderIsOfferedWhenItIsKnownToBeEmpty) {
    auto& dialog = Open();
    Come();
    dialog.Chooser.File1.SelectAll();
    ExpectQuestion(
        "You are about to delete 3 files from the directory:\r\n\r\nC:\\slow\\\r\n\r\nAre you sure?",
        Answer::Yes);
    Press(dialog.CmdDelete);
    EXPECT_FALSE(IsThere("C:\\slow\\a.bmp"));
    EXPECT_TRUE(dialog.Chooser.Lists.Pending());
    EXPECT_FALSE(module.Busy());
    ExpectQuestion(AskEmpty, Answer::Yes);
    Come();
    Come();
    EXPECT_FALSE(IsThere(Slow));
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\");
}

TEST_F(SlowDeleteTest, AFolderThatHoldsOtherFilesIsNot) {
    auto& dialog = Open();
    platform.disks.PutFile("C:\\slow\\notes.txt", "x");
    Come();
    dialog.Chooser.File1.SelectAll();
    ExpectQuestion(
        "You are about to delete 3 files from the directory:\r\n\r\nC:\\slow\\\r\n\r\nAre you sure?",
        Answer::Yes);
    Press(dialog.CmdDelete);
    Come();
    Come();
    EXPECT_TRUE(IsThere("C:\\slow\\notes.txt"));
    EXPECT_EQ(dialog.Chooser.File1.ListCount(), 0);
}

TEST_F(SlowDeleteTest, NobodyIsAskedAboutAFolderThatWasLeft) {
    auto& dialog = Open();
    Come();
    for (const char* name : {"a.bmp", "b.bmp"})
        platform.disks.Remove(std::string("C:\\slow\\") + name);
    dialog.Chooser.File1.Refresh();
    static_cast<void>(dialog.Chooser.File1.ListCount());
    Come();
    dialog.Chooser.File1.Select(0);
    ExpectDelete("C:\\slow\\c.bmp");
    Press(dialog.CmdDelete);
    dialog.Chooser.Dir1.Path = Quick;
    Come();
    Come();
    EXPECT_TRUE(IsThere(Slow));
}

TEST_F(SlowDeleteTest, ClosingWhileItIsSeenWhetherAFolderIsEmptyEndsThat) {
    auto& dialog = Open();
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        platform.disks.Remove(std::string("C:\\slow\\") + name);
    dialog.Chooser.File1.Refresh();
    static_cast<void>(dialog.Chooser.File1.ListCount());
    Come();
    const forms::Form::HandlerScope scope(dialog);
    toolkit.Post([&] { Press(dialog.CmdCancel); });
    Press(dialog.CmdDelete);
    EXPECT_TRUE(dialog.Unloaded());
    EXPECT_FALSE(module.Busy());
    EXPECT_TRUE(IsThere(Slow));
}

TEST_F(SlowDeleteTest, SoDoesGoingToAnotherFolder) {
    auto& dialog = Open();
    platform.disks.PutFolder("C:\\other");
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        platform.disks.Remove(std::string("C:\\slow\\") + name);
    Come();
    toolkit.Post([&] {
        EXPECT_TRUE(module.Busy());
        dialog.Chooser.Dir1.Path = "C:\\other";
    });
    Press(dialog.CmdDelete);
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\other");
    EXPECT_FALSE(module.Busy());
    dialog.Chooser.Dir1.Path = Slow;
    Come();
    toolkit.Post([&] { dialog.Chooser.Dir1.Path = "C:\\other"; });
    Key(dialog.Chooser.Dir1, forms::KeyCode::Delete);
    EXPECT_TRUE(IsThere(Slow));
    EXPECT_TRUE(IsThere("C:\\other"));
}

class SlowDeleteFolderTest : public SlowFoldersTest {
  protected:
    DeleteFolderFrm& Open() {
        Start();
        auto& dialog = Show<DeleteFolderFrm>(module);
        dialog.Dir1.Path = Slow;
        return dialog;
    }
    void Empty() {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
            platform.disks.Remove(std::string("C:\\slow\\") + name);
    }
    static constexpr const char* NotEmpty = "The selected folder is not empty, unable to delete...";
};

TEST_F(SlowDeleteFolderTest, AFolderThatHasNotComeIsNotEmpty) {
    auto& dialog = Open();
    Press(dialog.CmdDelete);
    ExpectTold(NotEmpty);
    Come();
    Come();
    EXPECT_TRUE(IsThere(Slow));
    ExpectTold(NotEmpty);
    Press(dialog.CmdDelete);
    Come();
}

TEST_F(SlowDeleteFolderTest, AnEmptyOneIsRemoved) {
    Empty();
    auto& dialog = Open();
    Press(dialog.CmdDelete);
    EXPECT_TRUE(IsThere(Slow));
    ExpectQuestion("You are about to delete the folder:\r\n\r\nC:\\slow\r\n\r\nAre you sure?", Answer::Yes);
    Come();
    Come();
    EXPECT_FALSE(IsThere(Slow));
    EXPECT_EQ(app.Loaded<DeleteFolderFrm>(), nullptr);
}

TEST_F(SlowDeleteFolderTest, WhatCameIntoItMeanwhileCounts) {
    Empty();
    auto& dialog = Open();
    Come();
    platform.disks.PutFile("C:\\slow\\new.txt", "x");
    Press(dialog.CmdDelete);
    ExpectTold(NotEmpty);
    Come();
    EXPECT_TRUE(IsThere("C:\\slow\\new.txt"));
}

TEST_F(SlowDeleteFolderTest, SoDoesWhatCameWhileItWasBeingRead) {
    Empty();
    auto& dialog = Open();
    Press(dialog.CmdDelete);
    platform.disks.PutFile("C:\\slow\\new.txt", "x");
    ExpectTold(NotEmpty);
    Come();
    Come();
    EXPECT_TRUE(IsThere("C:\\slow\\new.txt"));
}

TEST_F(SlowDeleteFolderTest, NothingIsRemovedWhileSomethingElseIsDone) {
    Empty();
    auto& dialog = Open();
    Come();
    Press(dialog.CmdDelete);
    {
        const forms::BusyGuard busy(module.Screen());
        Come();
    }
    EXPECT_TRUE(IsThere(Slow));
    EXPECT_TRUE(dialog.Visible());
}

TEST_F(SlowDeleteFolderTest, NeitherIsTheOneThatTheUserWentToInstead) {
    Empty();
    platform.disks.PutFolder("C:\\quick\\empty");
    auto& dialog = Open();
    Press(dialog.CmdDelete);
    dialog.Dir1.Path = "C:\\quick\\empty";
    Come();
    Come();
    EXPECT_TRUE(IsThere(Slow));
    EXPECT_TRUE(IsThere("C:\\quick\\empty"));
}

class SlowRenameTest : public SlowFoldersTest {};

TEST_F(SlowRenameTest, TheImageOnShowIsSelectedAndRenameWaits) {
    auto& view = Start(true);
    auto& dialog = Show<RenameImgFrm>(view);
    EXPECT_EQ(dialog.Chooser.File1.ListIndex, -1);
    Press(dialog.CmdRename);
    ExpectTold("Unable to rename selected file, image is currently open...", "Tavrix - [Rename Image]");
    Come();
    EXPECT_EQ(dialog.Chooser.File1.FileName(), "b.bmp");
}

class SlowTransferTest : public SlowFoldersTest {
  protected:
    void ExpectCopy(Answer reply = Answer::Yes) {
        ExpectQuestion("Copy the file:\r\n\r\nb.bmp\r\n\r\n...to the following directory?\r\n\r\nC:\\TO\\",
                       reply);
    }
};

TEST_F(SlowTransferTest, TheSourceComesSelectedAndTheCopyWaitsForIt) {
    platform.disks.PutFolder("C:\\to");
    module.config.LastCopyToPath = "C:\\to";
    Start(true);
    module.config.LastCopyToPath = "C:\\to";
    auto& dialog = Show<frmCopyImages>(module);
    EXPECT_FALSE(dialog.Selection.CmdAll.Enabled);
    Press(dialog.CmdCopy);
    EXPECT_TRUE(dialog.Visible());
    ExpectCopy();
    Come();
    EXPECT_TRUE(IsThere("C:\\to\\b.bmp"));
    EXPECT_FALSE(IsThere("C:\\to\\a.bmp"));
    EXPECT_EQ(app.Loaded<frmCopyImages>(), nullptr);
}

TEST_F(SlowTransferTest, TheCopyWaitsForItsDestinationToo) {
    platform.disks.PutFolder("C:\\to");
    disk.also.insert("C:\\to");
    Start();
    auto& dialog = Show<frmCopyImages>(module);
    EXPECT_TRUE(dialog.Selection.CmdAll.Enabled);
    dialog.File1.Select(1);
    dialog.Dir2.Path = "C:\\to";
    EXPECT_EQ(dialog.MousePointer, forms::MousePointer::ArrowHourglass);
    Press(dialog.CmdCopy);
    ExpectCopy(Answer::No);
    Come();
    EXPECT_EQ(dialog.MousePointer, forms::MousePointer::Default);
    EXPECT_TRUE(dialog.Visible());
}

TEST_F(SlowTransferTest, WhoGoesElsewhereOnEitherSideCopiesNothing) {
    platform.disks.PutFolder("C:\\to");
    platform.disks.PutFolder("C:\\there");
    disk.also.insert("C:\\to");
    Start();
    auto& dialog = Show<frmCopyImages>(module);
    dialog.Dir2.Path = "C:\\to";
    Press(dialog.CmdCopy);
    dialog.Dir1.Path = Slow;
    Come();
    Come();
    EXPECT_TRUE(dialog.Visible());
    dialog.Dir1.Path = Quick;
    dialog.Dir1.Path = Slow;
    Press(dialog.CmdCopy);
    dialog.Dir2.Path = "C:\\there";
    Come();
    EXPECT_TRUE(dialog.Visible());
    EXPECT_EQ(Listed(dialog.File1).size(), 3U);
}

TEST_F(SlowTransferTest, TheFirstFileIsCurrentWhenTheFolderHasCome) {
    Start();
    auto& dialog = Show<frmMoveImages>(module);
    dialog.Dir1.Path = Slow;
    EXPECT_EQ(dialog.File1.ListIndex, -1);
    EXPECT_FALSE(dialog.Selection.CmdInverse.Enabled);
    Come();
    EXPECT_EQ(dialog.File1.ListIndex, 0);
    EXPECT_TRUE(dialog.Selection.CmdInverse.Enabled);
    ExpectDelete("C:\\slow\\a.bmp");
    Key(dialog.File1, forms::KeyCode::Delete);
    EXPECT_EQ(dialog.File1.ListCount(), 0);
    Come();
    EXPECT_EQ(Listed(dialog.File1), (Names{"b.bmp", "c.bmp"}));
    EXPECT_EQ(dialog.File1.ListIndex, 0);
}

TEST_F(SlowTransferTest, TheMoveOfTheImageOnShowWaits) {
    Start(true);
    platform.disks.PutFolder("C:\\to");
    disk.also.insert("C:\\to");
    std::string target;
    auto& dialog = Show<frmMoveCurrentImg>(module, target);
    dialog.Dir1.Path = "C:\\to";
    Press(dialog.CmdMove);
    EXPECT_EQ(target, "");
    Come();
    EXPECT_EQ(target, "C:\\to\\");
    EXPECT_EQ(app.Loaded<frmMoveCurrentImg>(), nullptr);
}

TEST_F(SlowTransferTest, TheFirstFileOfASlowDriveIsSeenWhileMessagesRun) {
    disk.also.insert("C:\\");
    platform.disks.PutFile("C:\\1.txt", "x");
    auto& view = Start(true);
    int shown = 0;
    int messages = 0;
    toolkit.Post([&] {
        ++messages;
        EXPECT_TRUE(module.Busy());
    });
    toolkit.OnModal("frmMoveCurrentImg", [&] {
        ++shown;
        EXPECT_EQ(messages, 1);
        EXPECT_FALSE(module.Busy());
        Press(app.Loaded<frmMoveCurrentImg>()->CmdCancel);
    });
    view.menu.mnuMoveCurrentImg.Deliver(forms::ClickEvent{});
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(module.CurrentImage, "C:\\slow\\1.txtb.bmp") << "as it goes without a choice";
}

class SlowFloppyTest : public SlowFoldersTest {
  protected:
    SlowFloppyTest() {
        platform.disks.InsertDisk('A');
        platform.disks.PutFile("A:\\f.bmp", "f");
    }
};

/// A disk that is slow itself.
class FloppyThatSleepsTest : public SlowFloppyTest {
  protected:
    FloppyThatSleepsTest() { disk.also.insert("A:\\"); }

    /// Messages that run under the hourglass while something is done.
    template <class Act>
    int MessagesDuring(Act act) {
        int messages = 0;
        for (int yield = 1; yield <= 5; ++yield)
            toolkit.AtYield(yield, [&messages, this] { messages += module.Busy() ? 1 : 0; });
        act();
        EXPECT_FALSE(module.Busy());
        return messages;
    }
    /// Opens a dialog by its command, and uses it once.
    template <class Dialog>
    void InDialog(forms::Menu& command, const char* name, const std::function<void(Dialog&)>& use) {
        bool used = false;
        toolkit.OnModal(name, [&] {
            if (std::exchange(used, true)) return;
            use(*app.Loaded<Dialog>());
            if (auto* left = app.Loaded<Dialog>()) app.Unload(*left);
        });
        EXPECT_EQ(MessagesDuring([&] { command.Deliver(forms::ClickEvent{}); }), 5);
        EXPECT_TRUE(used);
    }
};

TEST_F(FloppyThatSleepsTest, IsReadWhileMessagesRun) {
    InDialog<frmCopyFloppy>(Start().menu.mnuCopyFromFloppy, "frmCopyFloppy", [this](frmCopyFloppy& dialog) {
        EXPECT_EQ(Listed(dialog.Files.File1), Names{"f.bmp"});
        platform.disks.PutFile("A:\\g.bmp", "g");
        EXPECT_EQ(MessagesDuring([&] { Press(dialog.CmdNewDisk); }), 5);
        EXPECT_EQ(Listed(dialog.Files.File1), (Names{"f.bmp", "g.bmp"}));
        dialog.Files.File1.Select(1);
        ExpectQuestion("Copy the file:\r\n\r\ng.bmp\r\n\r\n...to the following directory?\r\n\r\nC:\\QUICK\\",
                       Answer::Yes);
        EXPECT_GE(MessagesDuring([&] { Press(dialog.CmdCopy); }), 5);
        EXPECT_TRUE(IsThere("C:\\quick\\g.bmp"));
    });
}

TEST_F(FloppyThatSleepsTest, SoIsOneWhoseFilesGo) {
    InDialog<frmDeleteFloppy>(Start().menu.mnuDelImgOnFloppy, "frmDeleteFloppy",
                              [this](frmDeleteFloppy& dialog) {
                                  EXPECT_EQ(Listed(dialog.Files.File1), Names{"f.bmp"});
                                  EXPECT_EQ(MessagesDuring([&] { Press(dialog.CmdRefresh); }), 5);
                              });
}

TEST_F(FloppyThatSleepsTest, SoIsTheSourceOfACopyBetweenTwo) {
    InDialog<frmDiskcopy>(Start().menu.mnuDiskcopyFloppy, "frmDiskcopy", [this](frmDiskcopy& dialog) {
        EXPECT_EQ(Listed(dialog.Files.File1), Names{"f.bmp"});
        ExpectTold("Make sure the SOURCE disk is inserted and then press the OK button to continue.");
        ExpectTold("No source files are selected, nothing to copy...");
        EXPECT_EQ(MessagesDuring([&] { Press(dialog.CmdCopy); }), 5);
    });
}

TEST_F(FloppyThatSleepsTest, NothingIsDoneForADialogThatIsClosedMeanwhile) {
    InDialog<frmCopyFloppy>(Start().menu.mnuCopyFromFloppy, "frmCopyFloppy", [this](frmCopyFloppy& dialog) {
        const forms::Form::HandlerScope scope(dialog);
        dialog.Files.File1.Select(0);
        dialog.Dir2.Path = Quick;
        ExpectQuestion("Copy the file:\r\n\r\nf.bmp\r\n\r\n...to the following directory?\r\n\r\nC:\\QUICK\\",
                       Answer::Yes);
        toolkit.AtYield(2, [&] { Press(dialog.CmdCancel); });
        Press(dialog.CmdCopy);
        EXPECT_TRUE(dialog.Unloaded());
        EXPECT_FALSE(module.Busy());
        EXPECT_FALSE(IsThere("C:\\quick\\f.bmp"));
    });
}

TEST_F(SlowFloppyTest, FilesForAFloppyWaitForTheirFolder) {
    Start(true);
    auto& dialog = Show<frmPutOnFloppy>(module);
    EXPECT_FALSE(dialog.Files.Selection.CmdAll.Enabled);
    Press(dialog.CmdCopy);
    ExpectQuestion("Copy the file:\r\n\r\nb.bmp\r\n\r\n...to floppy disk A:\\ ?", Answer::No);
    Come();
    EXPECT_TRUE(dialog.Files.Selection.CmdAll.Enabled);
    EXPECT_EQ(dialog.Files.File1.FileName(), "b.bmp");
    dialog.Dir1.Path = Quick;
    EXPECT_EQ(dialog.Files.File1.ListIndex, 0);
    dialog.Dir1.Path = Slow;
    Come();
    EXPECT_EQ(dialog.Files.File1.ListIndex, 0);
    ExpectDelete("C:\\slow\\a.bmp");
    Key(dialog.Files.File1, forms::KeyCode::Delete);
    Come();
    EXPECT_EQ(dialog.Files.File1.FileName(), "b.bmp");
}

TEST_F(SlowFloppyTest, ACopyFromAFloppyWaitsForItsDestination) {
    Start();
    auto& dialog = Show<frmCopyFloppy>(module);
    EXPECT_EQ(Listed(dialog.Files.File1), Names{"f.bmp"});
    dialog.Files.File1.Select(0);
    dialog.Dir2.Path = Slow;
    Press(dialog.CmdCopy);
    ExpectQuestion("Copy the file:\r\n\r\nf.bmp\r\n\r\n...to the following directory?\r\n\r\nC:\\SLOW\\",
                   Answer::No);
    Come();
}

}  // namespace
}  // namespace tavrix::test
