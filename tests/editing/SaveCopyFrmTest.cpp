#include "editing/saving/SaveCopyFrm.h"

#include "core/UnsavedImage.h"
#include "editing/SavingTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class SaveCopyFrmTest : public SavingTest {
  protected:
    static constexpr const char* Colon = "A filename may not contain a colon (:), unable to export image...";
    static constexpr const char* Slash = "A filename may not contain a slash (/), unable to export image...";
    static constexpr const char* Backslash =
        "A filename may not contain a backslash (\\), unable to export image...";
    static constexpr const char* SameFile =
        "The filename and selected path are the same as the original image file, nothing to copy...";

    void InSaveCopy(const std::function<void(SaveCopyFrm&)>& action) {
        InDialog<SaveCopyFrm>(View().menu.mnuSaveCopy, "SaveCopyFrm", action);
    }
    /// The dialog on the GIF file.
    void OpenAndSave(const std::function<void(SaveCopyFrm&)>& action) {
        ASSERT_TRUE(Start(Gif));
        InSaveCopy(action);
        EXPECT_EQ(Content(Gif), gifBytes);
    }
    void ExpectNew(const std::string& path, Answer reply) {
        ExpectQuestion("About to save the image as:\r\n\r\n" + path + "\r\n\r\nIs this filename OK?", reply);
    }
    void ExpectNotSaved(const std::string& path, const std::string& description) {
        ExpectStop("Unable to save a copy of the image:\r\n\r\n" + path + "\r\n\r\n" + description + "...");
    }
};

TEST_F(SaveCopyFrmTest, BeginsWithTheNameAndTheFolderOfTheImage) {
    platform.files.ChangeFolder("C:\\q");
    OpenAndSave([](SaveCopyFrm& dialog) {
        ExpectProposed(dialog.Target, "a.gif");
        ExpectPlace(dialog.Target, "C:\\p");
        EXPECT_EQ(dialog.Target.lblCurrent.Caption.Get(), Gif);
    });
}

TEST_F(SaveCopyFrmTest, BeginsInTheCurrentFolderWithAnUnsavedImage) {
    ASSERT_TRUE(Start(Gif));
    MakeUnsaved(8, 8, GifColour);
    platform.files.ChangeFolder("C:\\q");
    InSaveCopy([](SaveCopyFrm& dialog) {
        ExpectProposed(dialog.Target, "Untitled.BMP");
        ExpectPlace(dialog.Target, "C:\\q");
        EXPECT_EQ(dialog.Target.lblCurrent.Caption.Get(), Working);
    });
}

TEST_F(SaveCopyFrmTest, BeginsInTheProgramsFolderWithTheWorkingFileThere) {
    ASSERT_TRUE(Start(Gif));
    module.CurrentImage = "C:\\Tavrix\\Untitled.BMP";
    InSaveCopy([](SaveCopyFrm& dialog) { ExpectPlace(dialog.Target, "C:\\Tavrix"); });
}

TEST_F(SaveCopyFrmTest, AFolderThatHasGoneLeavesTheLists) {
    ASSERT_TRUE(Start(Gif));
    module.CurrentImage = "D:\\gone\\a.gif";
    InSaveCopy([](SaveCopyFrm& dialog) {
        ExpectPlace(dialog.Target, "D:\\");
        ExpectProposed(dialog.Target, "a.gif");
    });
    module.CurrentImage = "A:\\pictures\\a.gif";
    ExpectTold("The selected drive is currently not available...");
    InSaveCopy([](SaveCopyFrm& dialog) { ExpectPlace(dialog.Target, "C:\\p"); });
}

TEST_F(SaveCopyFrmTest, TextsAreAsTold) {
    OpenAndSave([](SaveCopyFrm& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Save Copy");
        EXPECT_EQ(dialog.HelpContext, HelpContext::SaveCopy);
        const FileTarget& target = dialog.Target;
        const std::vector<std::vector<std::string>> texts{
            {target.lblFilename.Caption, target.txtFilename.ToolTip},
            {target.lblCurMsg.Caption, target.lblCurrent.ToolTip},
            {target.CmdFF.Caption, target.CmdFF.ToolTip},
            {target.CmdNew.Caption, target.CmdNew.ToolTip},
            {dialog.CmdSave.Caption, dialog.CmdSave.ToolTip},
            {dialog.CmdCancel.Caption, dialog.CmdCancel.ToolTip}};
        const std::vector<std::vector<std::string>> expected{
            {"&Enter a filename:", "Enter a filename."},
            {"Current filename:", "Shows path of the image currently being displayed."},
            {"&FF", "Change directory to your Favorite Folder."},
            {"&New Folder", "Create a new folder in the selected directory."},
            {"&Save", "Click here to save a copy of the file."},
            {"&Cancel", "Don't save copy of file."}};
        EXPECT_EQ(texts, expected);
    });
}

TEST_F(SaveCopyFrmTest, KeysReachEverything) {
    OpenAndSave([](SaveCopyFrm& dialog) {
        std::vector<std::string> names;
        for (const forms::Control* control : dialog.Controls())
            names.push_back(control->Name());
        EXPECT_EQ(names, (std::vector<std::string>{"lblCurMsg", "lblCurrent", "lblFilename", "txtFilename",
                                                   "lblDrives", "Drive1", "lblFolders", "Dir1", "CmdFF",
                                                   "CmdNew", "CmdSave", "CmdCancel"}));
        EXPECT_TRUE(dialog.CmdSave.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        ExpectOwnLetters(dialog, 7);
    });
}

TEST_F(SaveCopyFrmTest, TheNameHasTheFocusWheneverTheWindowIsActivated) {
    OpenAndSave([](SaveCopyFrm& dialog) {
        EXPECT_EQ(dialog.ActiveControl(), &dialog.Target.txtFilename);
        dialog.Target.Dir1.SetFocus();
        dialog.Form_Activate();
        EXPECT_EQ(dialog.ActiveControl(), &dialog.Target.txtFilename);
    });
}

TEST_F(SaveCopyFrmTest, AClickOnThePathShowsItWhole) {
    platform.disks.PutFile("C:\\R&D\\a.gif", gifBytes);
    ASSERT_TRUE(Start("C:\\R&D\\a.gif"));
    InSaveCopy([this](SaveCopyFrm& dialog) {
        for (forms::Label* label : {&dialog.Target.lblCurrent, &dialog.Target.lblCurMsg}) {
            ExpectTold("Complete path to current image file:\r\n\r\nC:\\R&D\\a.gif");
            label->Deliver(forms::ClickEvent{});
        }
        EXPECT_EQ(static_cast<headless::HeadlessLabelPeer*>(dialog.Target.lblCurrent.Peer())->text,
                  "C:\\R&&D\\a.gif");
    });
}

TEST_F(SaveCopyFrmTest, ANameIsNeeded) {
    OpenAndSave([this](SaveCopyFrm& dialog) {
        for (const char* name : {"", "   "}) {
            Enter(dialog.Target.txtFilename, name);
            dialog.Target.Dir1.SetFocus();
            ExpectTold("You forgot to enter a filename, unable to save a copy of the current image...");
            Press(dialog.CmdSave);
            EXPECT_TRUE(dialog.Visible());
            EXPECT_EQ(dialog.ActiveControl(), &dialog.Target.txtFilename);
        }
    });
}

TEST_F(SaveCopyFrmTest, AColonOrABackslashIsRefusedWithTheCaretThere) {
    OpenAndSave([this](SaveCopyFrm& dialog) {
        const std::vector<std::tuple<std::string, const char*, int>> cases{
            {"a:b.gif", Colon, 1},
            {":", Colon, 0},
            {"b\\c.gif", Backslash, 1},
            {"long name\\", Backslash, 9},
            {"sub/b.gif", Slash, 3},
            {"/", Slash, 0},
            {"b\\c:d.gif", Colon, 3},  // the colon is looked for first
            {"\xC3\xA4\xC3\xB6:x", Colon, 2},
            {"a:b:c", Colon, 1}};
        for (const auto& [name, text, caret] : cases) {
            Enter(dialog.Target.txtFilename, name);
            dialog.Target.Dir1.SetFocus();
            ExpectTold(text);
            Press(dialog.CmdSave);
            ExpectCaret(dialog.Target.txtFilename, caret);
            EXPECT_EQ(dialog.Target.txtFilename.Text.Get(), name);
            EXPECT_TRUE(dialog.Visible());
        }
    });
}

TEST_F(SaveCopyFrmTest, TheFileOnShowIsNotCopiedOntoItself) {
    platform.disks.PutLink("C:\\p", "D:\\link");
    platform.disks.PutLink(Gif, "C:\\q\\other.gif");
    OpenAndSave([this](SaveCopyFrm& dialog) {
        ExpectTold(SameFile);
        Press(dialog.CmdSave);
        Enter(dialog.Target.txtFilename, "A.GIF");
        ExpectTold(SameFile);
        Press(dialog.CmdSave);
        // By another way to the same file.
        dialog.Target.Drive1.Drive = "D:";
        dialog.Target.Dir1.Path = "D:\\link";
        ExpectTold(SameFile);
        Press(dialog.CmdSave);
        dialog.Target.Drive1.Drive = "C:";
        dialog.Target.Dir1.Path = "C:\\q";
        Enter(dialog.Target.txtFilename, "other.gif");
        ExpectTold(SameFile);
        Press(dialog.CmdSave);
        EXPECT_TRUE(dialog.Visible());
    });
    ExpectCurrent(Gif);
}

TEST_F(SaveCopyFrmTest, NoLeavesTheWindowOpen) {
    platform.disks.PutFile("C:\\p\\old.gif", "old");
    OpenAndSave([this](SaveCopyFrm& dialog) {
        Enter(dialog.Target.txtFilename, "new.gif");
        ExpectNew("C:\\p\\new.gif", Answer::No);
        Press(dialog.CmdSave);
        EXPECT_TRUE(dialog.Visible());
        Enter(dialog.Target.txtFilename, "old.gif");
        ExpectReplace("C:\\p\\old.gif", Answer::No);
        Press(dialog.CmdSave);
        EXPECT_TRUE(dialog.Visible());
        EXPECT_FALSE(module.Busy());
    });
    EXPECT_FALSE(platform.disks.Exists("C:\\p\\new.gif"));
    EXPECT_EQ(Content("C:\\p\\old.gif"), "old");
    ExpectCurrent(Gif);
}

TEST_F(SaveCopyFrmTest, TheCopyIsTheImageOnShow) {
    OpenAndSave([this](SaveCopyFrm& dialog) {
        dialog.Target.Drive1.Drive = "D:";
        dialog.Target.Dir1.Path = "D:\\out";
        Enter(dialog.Target.txtFilename, "copy.gif");
        View().menu.mnuUndo.Enabled = true;
        View().menu.mnuUndo.Caption = "&Undo Crop";
        ExpectNew("D:\\out\\copy.gif", Answer::Yes);
        Press(dialog.CmdSave);
        EXPECT_TRUE(dialog.Unloaded());
    });
    EXPECT_EQ(Content("D:\\out\\copy.gif"), gifBytes);
    ExpectCurrent("D:\\out\\copy.gif");
    EXPECT_EQ(module.config.Recent[0], "D:\\out\\copy.gif");
    EXPECT_EQ(platform.shell.recent.back(), "D:\\out\\copy.gif");
    EXPECT_TRUE(View().menu.mnuUndo.Enabled);
    EXPECT_EQ(View().menu.mnuUndo.Caption.Get(), "&Undo Crop");
}

TEST_F(SaveCopyFrmTest, AnExistingFileIsReplacedWhenTheUserAgrees) {
    platform.disks.PutFile("D:\\old.gif", "old");
    OpenAndSave([this](SaveCopyFrm& dialog) {
        dialog.Target.Drive1.Drive = "D:";
        Enter(dialog.Target.txtFilename, "OLD.gif");
        ExpectReplace("D:\\OLD.gif", Answer::Yes);
        Press(dialog.CmdSave);
    });
    EXPECT_EQ(Content("D:\\old.gif"), gifBytes);
    ExpectCurrent("D:\\OLD.gif");
}

TEST_F(SaveCopyFrmTest, AnEditIsKeptInTheFormatOfTheWorkingFile) {
    ASSERT_TRUE(Start(Gif));
    MakeUnsaved(8, 8, GifColour);
    const std::string bitmap = Content(Working);
    EXPECT_TRUE(IsUnsavedImage(module));
    InSaveCopy([this](SaveCopyFrm& dialog) {
        Enter(dialog.Target.txtFilename, "edited.jpg");
        ExpectNew("C:\\p\\edited.jpg", Answer::Yes);
        Press(dialog.CmdSave);
    });
    EXPECT_FALSE(IsUnsavedImage(module));
    EXPECT_EQ(Content("C:\\p\\edited.jpg"), bitmap);
    EXPECT_EQ(Content(Working), bitmap);
    ExpectCurrent("C:\\p\\edited.jpg");
}

TEST_F(SaveCopyFrmTest, ThePointerIsTheHourglassAndTheWindowHiddenMeanwhile) {
    bool copied = false;
    OpenAndSave([&](SaveCopyFrm& dialog) {
        Enter(dialog.Target.txtFilename, "copy.gif");
        ExpectNew("C:\\p\\copy.gif", Answer::Yes);
        toolkit.AtYield(1, [&] { EXPECT_TRUE(dialog.Visible()); });
        toolkit.AtYield(2, [&] {
            copied = true;
            EXPECT_FALSE(dialog.Visible());
            EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
            Press(dialog.CmdSave);  // once more
        });
        Press(dialog.CmdSave);
    });
    EXPECT_TRUE(copied);
    EXPECT_EQ(Asked("Files.Copy"), 1);
}

TEST_F(SaveCopyFrmTest, WhatIsEnteredBehindTheAnswerDoesNotCount) {
    OpenAndSave([this](SaveCopyFrm& dialog) {
        Enter(dialog.Target.txtFilename, "copy.gif");
        ExpectNew("C:\\p\\copy.gif", Answer::Yes);
        toolkit.AtYield(1, [&dialog] { Enter(dialog.Target.txtFilename, "other.gif"); });
        Press(dialog.CmdSave);
    });
    ExpectCurrent("C:\\p\\copy.gif");
    EXPECT_FALSE(platform.disks.Exists("C:\\p\\other.gif"));
}

TEST_F(SaveCopyFrmTest, AWindowThatIsClosedInThatMomentCopiesNothing) {
    OpenAndSave([this](SaveCopyFrm& dialog) {
        Enter(dialog.Target.txtFilename, "copy.gif");
        ExpectNew("C:\\p\\copy.gif", Answer::Yes);
        toolkit.AtYield(1, [&dialog] { Press(dialog.CmdCancel); });
        Press(dialog.CmdSave);
    });
    EXPECT_FALSE(platform.disks.Exists("C:\\p\\copy.gif"));
    ExpectCurrent(Gif);
}

TEST_F(SaveCopyFrmTest, ACopyThatFailsIsToldAndTheDialogComesAgain) {
    platform.disks.PutFile("C:\\p\\locked.gif", "locked");
    platform.disks.SetReadOnly("C:\\p\\locked.gif", true);
    platform.disks.SetCapacity('D', 4);
    ASSERT_TRUE(Start(Gif));
    int shows = 0;
    toolkit.OnModal("SaveCopyFrm", [&, this] {
        auto& dialog = *app.Loaded<SaveCopyFrm>();
        EXPECT_FALSE(module.Busy());
        EXPECT_TRUE(dialog.Visible());
        ExpectCurrent(Gif);
        switch (++shows) {
            case 1:
                Enter(dialog.Target.txtFilename, "locked.gif");
                ExpectReplace("C:\\p\\locked.gif", Answer::Yes);
                ExpectNotSaved("C:\\p\\locked.gif", "Permission denied");
                Press(dialog.CmdSave);
                EXPECT_TRUE(dialog.Unloaded()) << "by what the user does when it is shown again";
                break;
            case 2:
                EXPECT_EQ(dialog.Target.txtFilename.Text.Get(), "locked.gif") << "what was entered is kept";
                ExpectPlace(dialog.Target, "C:\\p");
                EXPECT_EQ(dialog.ActiveControl(), &dialog.Target.txtFilename);
                dialog.Target.Drive1.Drive = "D:";
                Enter(dialog.Target.txtFilename, "a.gif");
                ExpectNew("D:\\a.gif", Answer::Yes);
                ExpectNotSaved("D:\\a.gif", "Disk full");
                Press(dialog.CmdSave);
                break;
            case 3:
                dialog.Target.Drive1.Drive = "C:";
                Enter(dialog.Target.txtFilename, "a?.gif");
                ExpectNew("C:\\p\\a?.gif", Answer::Yes);
                ExpectNotSaved("C:\\p\\a?.gif", "Bad file name or number");
                Press(dialog.CmdSave);
                break;
            default:
                Enter(dialog.Target.txtFilename, "b.gif");
                ExpectNew("C:\\p\\b.gif", Answer::Yes);
                Press(dialog.CmdSave);
                break;
        }
    });
    EXPECT_FALSE(Choose(View().menu.mnuSaveCopy));
    EXPECT_EQ(shows, 4);
    EXPECT_EQ(app.FormCount(), 1);
    ExpectIdle();
    EXPECT_EQ(Content("C:\\p\\locked.gif"), "locked");
    EXPECT_FALSE(platform.disks.Exists("D:\\a.gif"));
    ExpectCurrent("C:\\p\\b.gif");
    EXPECT_EQ(Content("C:\\p\\b.gif"), gifBytes);
    EXPECT_EQ(module.config.Recent[0], "C:\\p\\b.gif");
}

TEST_F(SaveCopyFrmTest, AnImageWhoseFileHasGoneCannotBeCopied) {
    ASSERT_TRUE(Start(Gif));
    platform.disks.Remove(Gif);
    int shows = 0;
    toolkit.OnModal("SaveCopyFrm", [&, this] {
        auto& dialog = *app.Loaded<SaveCopyFrm>();
        if (++shows > 1) {
            Press(dialog.CmdCancel);
            return;
        }
        Enter(dialog.Target.txtFilename, "copy.gif");
        ExpectNew("C:\\p\\copy.gif", Answer::Yes);
        ExpectNotSaved("C:\\p\\copy.gif", "File not found");
        Press(dialog.CmdSave);
    });
    EXPECT_FALSE(Choose(View().menu.mnuSaveCopy));
    EXPECT_EQ(shows, 2);
    EXPECT_EQ(app.FormCount(), 1);
    ExpectIdle();
    EXPECT_FALSE(platform.disks.Exists("C:\\p\\copy.gif"));
    ExpectCurrent(Gif);
}

TEST_F(SaveCopyFrmTest, TheFolderButtonAndTheNewFolderButtonMoveTheLists) {
    ASSERT_TRUE(Start(Gif));
    module.config.FavoriteFolder = "D:\\out\\";
    module.config.QuickFolder = {"", "Queue", "", "Gone"};
    module.config.QuickFolderPath = {"", "C:\\q\\", "", "D:\\gone"};
    InSaveCopy([this](SaveCopyFrm& dialog) {
        const auto choose = [&](const std::string& caption) {
            toolkit.ChooseFromPopup(caption);
            dialog.Target.CmdFF.Deliver(
                forms::MouseEvent{forms::MouseAction::Down, forms::MouseButton::Right, 0, 1, 1});
        };
        Press(dialog.Target.CmdFF);
        ExpectPlace(dialog.Target, "D:\\out");
        choose("Queue");
        ExpectPlace(dialog.Target, "C:\\q");
        ExpectStop("Unable to change directory to Quick Path 4.\r\n\r\nPath not found...");
        choose("Gone");
        toolkit.ExpectInput(
            {.prompt = "Enter the name of the folder to create:", .title = "New Folder", .reply = "made"});
        Press(dialog.Target.CmdNew);
        EXPECT_EQ(dialog.Target.Dir1.Path.Get(), dialog.Target.Drive1.Drive.Get() + "\\made");
        ExpectTold("The selected drive is currently not available...");
        dialog.Target.Drive1.Deliver(forms::RowEvent{0});
    });
}

TEST_F(SaveCopyFrmTest, WithoutQuickFoldersThePopupOnlyCloses) {
    OpenAndSave([this](SaveCopyFrm& dialog) {
        dialog.Target.CmdFF.Deliver(
            forms::MouseEvent{forms::MouseAction::Down, forms::MouseButton::Right, 0, 1, 1});
        ASSERT_EQ(toolkit.Popups().size(), 1U);
        std::vector<std::string> shown;
        for (const forms::Menu* entry : dialog.Target.FavoriteButton.mnuPopup.Entries()) {
            if (entry->Visible) shown.push_back(entry->Caption);
        }
        EXPECT_EQ(shown, (std::vector<std::string>{">>  Close Menu  <<          (Esc)", "-"}));
    });
}

TEST_F(SaveCopyFrmTest, DoesNotOpenWhileTheProgramIsBusy) {
    ASSERT_TRUE(Start(Gif));
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    EXPECT_FALSE(Choose(View().menu.mnuSaveCopy));
    EXPECT_EQ(app.Loaded<SaveCopyFrm>(), nullptr);
    EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
}

TEST_F(SaveCopyFrmTest, TheMainViewLeavesTheTopmostBandMeanwhile) {
    ASSERT_TRUE(Start(Gif));
    module.config.TopMostWindow = true;
    View().SetTopmost(true);
    InSaveCopy([this](SaveCopyFrm&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
}

}  // namespace
}  // namespace tavrix::test
