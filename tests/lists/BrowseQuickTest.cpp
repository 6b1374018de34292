#include "core/HelpContexts.h"
#include "lists/QuickFoldersTest.h"

namespace tavrix::test {
namespace {

class BrowseQuickTest : public QuickFoldersTest {
  protected:
    /// Browses the folder of a slot; the user does this and cancels, unless it is closed by then. What stands in the
    /// fields afterwards is looked at by `after`.
    void Browse(
        int slot, std::function<void(frmBrowseQuick&)> user,
        std::function<void(frmQuickFolders&)> after = [](frmQuickFolders&) {},
        std::function<void(frmQuickFolders&)> before = [](frmQuickFolders&) {}) {
        const int earlier = browses;
        OnBrowse(std::move(user));
        Show([=](frmQuickFolders& dialog) {
            before(dialog);
            Press(dialog.Rows[static_cast<std::size_t>(slot - 1)].CmdBrowse);
            after(dialog);
        });
        EXPECT_EQ(browses, earlier + 1);
    }
};

TEST_F(BrowseQuickTest, BeginsInTheFolderOfTheSlot) {
    Browse(3, [](frmBrowseQuick& browse) {
        EXPECT_EQ(browse.Caption.Get(), "Select Quick Folder 3");
        EXPECT_EQ(browse.lblPath.Caption.Get(), "D:\\Photos\\");
        EXPECT_EQ(browse.Chooser.Drive1.Drive.Get(), "D:");
        EXPECT_EQ(browse.Chooser.Dir1.Path.Get(), "D:\\Photos");
        EXPECT_EQ(browse.Chooser.lblFreeSpaceMsg.Caption.Get(), "Free Space:");
        EXPECT_EQ(browse.Chooser.lblFreeSpace.Caption.Get(), "Free Space on Drive D:\\  =1,234,944 bytes...");
    });
}

TEST_F(BrowseQuickTest, AnEmptyOrVanishedPathLeavesTheLists) {
    platform.files.ChangeFolder("C:\\Pictures");
    module.config.QuickFolderPath[2] = "Q:\\gone";
    for (const int slot : {2, 3}) {
        Browse(slot, [](frmBrowseQuick& browse) {
            EXPECT_EQ(browse.Chooser.Drive1.Drive.Get(), "C:");
            EXPECT_EQ(browse.Chooser.Dir1.Path.Get(), "C:\\Pictures");
            EXPECT_TRUE(browse.Chooser.lblFreeSpace.Caption.Get().starts_with("Free Space on Drive C:\\  ="));
        });
    }
}

TEST_F(BrowseQuickTest, OKPutsTheFolderIntoTheFieldsOnly) {
    Browse(
        4,
        [](frmBrowseQuick& browse) {
            browse.Chooser.Drive1.Drive = "D:";
            browse.Chooser.Dir1.Path = "d:\\Photos";
            Press(browse.CmdOK);
        },
        [this](frmQuickFolders& dialog) {
            const QuickFolderRow& row = dialog.Rows[3];
            EXPECT_EQ(row.lblPath.Caption.Get(), "D:\\Photos\\");
            EXPECT_EQ(row.txtName.Text.Get(), "D:\\Photos\\");
            EXPECT_EQ(row.txtName.SelStart.Get(), 0);
            EXPECT_EQ(row.txtName.SelLength.Get(), 10);
            EXPECT_EQ(dialog.ActiveControl(), &row.txtName);
            EXPECT_EQ(module.config.QuickFolderPath[3], "");
        });
    EXPECT_EQ(module.config.QuickFolderPath[3], "");
}

TEST_F(BrowseQuickTest, ANameThatIsThereStays) {
    Browse(
        1,
        [](frmBrowseQuick& browse) {
            browse.Chooser.Dir1.Path = "C:\\";
            Press(browse.CmdOK);
        },
        [](frmQuickFolders& dialog) {
            EXPECT_EQ(dialog.Rows[0].lblPath.Caption.Get(), "C:\\");
            EXPECT_EQ(dialog.Rows[0].txtName.Text.Get(), "Old ones");
            EXPECT_EQ(dialog.Rows[0].txtName.SelLength.Get(), 8);
            EXPECT_EQ(dialog.Rows[2].lblPath.Caption.Get(), "D:\\Photos\\");
        });
}

TEST_F(BrowseQuickTest, CancelAndTheFrameLeaveTheFields) {
    for (const bool byFrame : {false, true}) {
        Browse(
            1,
            [byFrame](frmBrowseQuick& browse) {
                browse.Chooser.Dir1.Path = "C:\\";
                if (byFrame) browse.Deliver(forms::CloseEvent{});
            },
            [](frmQuickFolders& dialog) {
                EXPECT_EQ(dialog.Rows[0].lblPath.Caption.Get(), "C:\\Pictures\\Old\\");
                EXPECT_EQ(dialog.ActiveControl(), &dialog.Rows[0].txtName);
            });
    }
}

TEST_F(BrowseQuickTest, ThePopupReadsTheFieldsThatAreNotYetStored) {
    Browse(
        2,
        [this](frmBrowseQuick& browse) {
            ChooseFromPopup(browse.Chooser, "Not yet stored");
            EXPECT_EQ(browse.Chooser.Dir1.Path.Get(), "D:\\Photos");
            std::vector<std::string> shown;
            for (const auto* entry : toolkit.Popups().back().menu->entries) {
                if (entry->state.visible) shown.push_back(entry->state.caption);
            }
            EXPECT_EQ(shown, (std::vector<std::string>{">>  Close Menu  <<          (Esc)", "-", "Old ones",
                                                       "Not yet stored"}));
            ExpectStop("Unable to change directory to Quick Path 1.\r\n\r\nPath not found...");
            ChooseFromPopup(browse.Chooser, "Old ones");
        },
        [](frmQuickFolders&) {},
        [](frmQuickFolders& dialog) {
            Press(dialog.Rows[2].CmdClear);
            Type(dialog.Rows[3], "Not yet stored");
            dialog.Rows[3].lblPath.Caption = "D:\\Photos\\";
            dialog.Rows[0].lblPath.Caption = "C:\\gone\\";
        });
}

TEST_F(BrowseQuickTest, TheButtonsDoWhatTheyDoInTheOtherWindow) {
    Browse(1, [this](frmBrowseQuick& browse) {
        FolderChooser& chooser = browse.Chooser;
        Press(chooser.CmdExplore);
        EXPECT_EQ(platform.shell.commands, (std::vector<std::string>{"explorer.exe C:\\Pictures\\Old"}));
        platform.shell.canRun = false;
        ExpectStop("Error, unable to start Windows Explorer to show selected directory.");
        Press(chooser.CmdExplore);
        AnswerNewFolder("New");
        Press(chooser.CmdNewFolder);
        EXPECT_EQ(chooser.Dir1.Path.Get(), "C:\\Pictures\\Old\\New");
        ExpectMissingDocuments("C:\\My Documents", forms::Answer::Yes);
        Press(chooser.CmdMyDocuments);
        EXPECT_EQ(chooser.Dir1.Path.Get(), "C:\\My Documents");
        Press(chooser.CmdFF2);
        EXPECT_EQ(chooser.Dir1.Path.Get(), "C:\\Pictures");
        Expect({.text = "The selected drive is currently not available..."});
        chooser.Drive1.Deliver(forms::RowEvent{0});
        EXPECT_EQ(chooser.Drive1.Drive.Get(), "C:");
        platform.help.calls.clear();
        Press(browse.CmdHelp);
        EXPECT_EQ(platform.help.calls.at(0).data, 120U);
        EXPECT_EQ(browse.HelpContext, HelpContext::FavoriteFolder);
    });
}

TEST_F(BrowseQuickTest, TheTabKeyGoesFromTheListsToTheButtons) {
    Browse(1, [](frmBrowseQuick& browse) {
        EXPECT_EQ(
            NamesOf(browse),
            (std::vector<std::string>{"lblDrives", "Drive1", "lblFolders", "Dir1", "CmdFF2", "CmdMyDocuments",
                                      "CmdNewFolder", "CmdExplore", "lblFreeSpaceMsg", "lblFreeSpace",
                                      "lblPathMsg", "lblPath", "CmdOK", "CmdCancel", "CmdHelp"}));
        EXPECT_TRUE(browse.CmdOK.Default);
        EXPECT_TRUE(browse.CmdCancel.Cancel);
    });
}

}  // namespace
}  // namespace tavrix::test
