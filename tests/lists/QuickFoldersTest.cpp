#include "lists/QuickFoldersTest.h"

#include "core/HelpContexts.h"

namespace tavrix::test {
namespace {

TEST_F(QuickFoldersTest, TheFieldsShowTheSettings) {
    Show([this](frmQuickFolders& dialog) {
        EXPECT_EQ(dialog.Fields().names, module.config.QuickFolder);
        EXPECT_EQ(dialog.Fields().paths, module.config.QuickFolderPath);
        EXPECT_EQ(dialog.Rows[0].txtName.SelStart.Get(), 0);
        EXPECT_EQ(dialog.Rows[0].txtName.SelLength.Get(), 8);
        EXPECT_EQ(dialog.Rows[2].txtName.SelLength.Get(), 0);
    });
}

TEST_F(QuickFoldersTest, TextsAreAsTold) {
    Show([](frmQuickFolders& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Select Quick Folders");
        for (std::size_t i = 0; i < 4; ++i) {
            const QuickFolderRow& row = dialog.Rows[i];
            const std::string number = std::to_string(i + 1);
            const std::vector<std::string> texts{row.lblName.Caption,   row.txtName.ToolTip,
                                                 row.lblPath.ToolTip,   row.CmdBrowse.Caption,
                                                 row.CmdClear.Caption,  row.CmdClear.ToolTip,
                                                 row.CmdBrowse.ToolTip, row.txtName.AccessibleName};
            EXPECT_EQ(texts,
                      (std::vector<std::string>{
                          "Shortcut Nam&e:", "Enter a name for this Quick Folder.  (40 characters max.)",
                          "Click the \"Browse\" button to change path.", "Brow&se", "Clear &" + number,
                          "Stop using quick folder " + number + ".", "", "Shortcut Name " + number}));
        }
        const std::vector<std::vector<std::string>> buttons{
            {dialog.CmdOK.Caption, dialog.CmdOK.ToolTip},
            {dialog.CmdCancel.Caption, dialog.CmdCancel.ToolTip},
            {dialog.CmdHelp.Caption, dialog.CmdHelp.ToolTip}};
        EXPECT_EQ(buttons, (std::vector<std::vector<std::string>>{
                               {"&OK", "Click here to save changes to your quick folders."},
                               {"&Cancel", "Cancel all changes to quick folders."},
                               {"&Help", ""}}));
    });
}

TEST_F(QuickFoldersTest, TheTabKeyGoesDownTheRows) {
    Show([](frmQuickFolders& dialog) {
        std::vector<std::string> names;
        for (const char* number : {"1", "2", "3", "4"}) {
            for (const char* name : {"lblName", "txtName", "lblPath", "CmdBrowse", "CmdClear"})
                names.push_back(std::string(name) + number);
        }
        names.insert(names.end(), {"CmdOK", "CmdCancel", "CmdHelp"});
        EXPECT_EQ(NamesOf(dialog), names);
        EXPECT_TRUE(dialog.CmdOK.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        // The labels lead to their fields.
        for (QuickFolderRow& row : dialog.Rows) {
            EXPECT_EQ(static_cast<headless::HeadlessLabelPeer*>(row.lblName.Peer())->buddy,
                      row.txtName.Peer());
        }
    });
}

TEST_F(QuickFoldersTest, ANameHasFortyCharactersAtMost) {
    const std::string forty(40, 'n');
    Show([&](frmQuickFolders& dialog) {
        for (QuickFolderRow& row : dialog.Rows)
            EXPECT_EQ(row.txtName.MaxLength.Get(), 40);
        dialog.Rows[0].txtName.Text = forty + "x";
        EXPECT_EQ(dialog.Rows[0].txtName.Text.Get(), forty);
        Press(dialog.CmdOK);
    });
    EXPECT_EQ(module.config.QuickFolder[0], forty);
}

TEST_F(QuickFoldersTest, CancelAndTheFrameChangeNothing) {
    const Four names = module.config.QuickFolder;
    const Four paths = module.config.QuickFolderPath;
    const auto change = [](frmQuickFolders& dialog) {
        Type(dialog.Rows[0], "Other");
        dialog.Rows[1].lblPath.Caption = "C:\\";
        Press(dialog.Rows[2].CmdClear);
    };
    Show(change);
    ExpectStored(names, paths);
    Show([&](frmQuickFolders& dialog) {
        change(dialog);
        dialog.Deliver(forms::CloseEvent{});
    });
    ExpectStored(names, paths);
}

TEST_F(QuickFoldersTest, OKStoresNamesAndPaths) {
    Show([](frmQuickFolders& dialog) {
        Type(dialog.Rows[0], "Other");
        Type(dialog.Rows[3], "Root");
        dialog.Rows[3].lblPath.Caption = "C:\\";
        Press(dialog.CmdOK);
    });
    ExpectStored({"Other", "", "Photos", "Root"}, {"C:\\Pictures\\Old\\", "", "D:\\Photos\\", "C:\\"});
    EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
    EXPECT_EQ(Saved("QuickFolder4"), "Root");
    EXPECT_EQ(Saved("QuickFolderPath4"), "C:\\");
}

TEST_F(QuickFoldersTest, AFolderWithoutANameTakesItsPath) {
    Show([](frmQuickFolders& dialog) {
        Type(dialog.Rows[0], "");
        Type(dialog.Rows[2], "   ");
        Press(dialog.CmdOK);
    });
    ExpectStored({"C:\\Pictures\\Old\\", "", "D:\\Photos\\", ""},
                 {"C:\\Pictures\\Old\\", "", "D:\\Photos\\", ""});
}

TEST_F(QuickFoldersTest, APathThatBecomesANameIsCutToFortyCharacters) {
    const std::string path = "C:\\" + std::string(50, 'p') + "\\";
    module.config.QuickFolder = {};
    module.config.QuickFolderPath = {path, "", "", ""};
    Show([](frmQuickFolders& dialog) { Press(dialog.CmdOK); });
    ExpectStored({path.substr(0, 40), "", "", ""}, {path, "", "", ""});
}

TEST_F(QuickFoldersTest, ANameWithoutAFolderIsRefusedAndTheDialogStays) {
    const Four names = module.config.QuickFolder;
    const Four paths = module.config.QuickFolderPath;
    for (int slot = 1; slot <= 4; ++slot) {
        Show([&](frmQuickFolders& dialog) {
            QuickFolderRow& row = dialog.Rows[static_cast<std::size_t>(slot - 1)];
            Type(row, "Name");
            row.lblPath.Caption = "";
            ExpectNoDirectory(slot);
            Press(dialog.CmdOK);
            EXPECT_FALSE(dialog.Unloaded());
            EXPECT_TRUE(dialog.Visible());
            EXPECT_EQ(row.txtName.Text.Get(), "Name");
        });
        ExpectStored(names, paths);
    }
}

TEST_F(QuickFoldersTest, TheFirstPassGoesThroughAllSlotsBeforeTheSecondFillsNames) {
    Show([&](frmQuickFolders& dialog) {
        Type(dialog.Rows[0], "");
        Type(dialog.Rows[1], "Two");
        Type(dialog.Rows[3], "Four");
        ExpectNoDirectory(2);
        Press(dialog.CmdOK);
        EXPECT_EQ(dialog.Rows[0].txtName.Text.Get(), "");
        dialog.Rows[1].lblPath.Caption = "C:\\";
        ExpectNoDirectory(4);
        Press(dialog.CmdOK);
        dialog.Rows[3].lblPath.Caption = "D:\\";
        Press(dialog.CmdOK);
        EXPECT_TRUE(dialog.Unloaded());
    });
    ExpectStored({"C:\\Pictures\\Old\\", "Two", "Photos", "Four"},
                 {"C:\\Pictures\\Old\\", "C:\\", "D:\\Photos\\", "D:\\"});
}

TEST_F(QuickFoldersTest, BlanksAreNoName) {
    Show([](frmQuickFolders& dialog) {
        Type(dialog.Rows[1], "  ");
        Type(dialog.Rows[2], " Photos ");
        Press(dialog.CmdOK);
    });
    ExpectStored({"Old ones", "", "Photos", ""}, {"C:\\Pictures\\Old\\", "", "D:\\Photos\\", ""});
}

TEST_F(QuickFoldersTest, ClearEmptiesASlotAndGoesToItsName) {
    for (std::size_t i = 0; i < 4; ++i) {
        module.config.QuickFolder = {"a", "b", "c", "d"};
        module.config.QuickFolderPath = {"A:\\", "B:\\", "C:\\", "D:\\"};
        Four names = module.config.QuickFolder;
        Four paths = module.config.QuickFolderPath;
        names[i].clear();
        paths[i].clear();
        Show([i](frmQuickFolders& dialog) {
            Press(dialog.Rows[i].CmdClear);
            EXPECT_EQ(dialog.ActiveControl(), &dialog.Rows[i].txtName);
            Press(dialog.CmdOK);
        });
        ExpectStored(names, paths);
    }
}

TEST_F(QuickFoldersTest, BrowseOpensTheWindowOfItsSlot) {
    int slot = 0;
    OnBrowse([&](frmBrowseQuick& browse) {
        EXPECT_EQ(browse.Caption.Get(), "Select Quick Folder " + std::to_string(slot));
        EXPECT_FALSE(module.Busy());
    });
    Show([&](frmQuickFolders& dialog) {
        for (QuickFolderRow& row : dialog.Rows) {
            ++slot;
            Press(row.CmdBrowse);
            EXPECT_EQ(dialog.QuickFolderSlot, slot);
            EXPECT_EQ(dialog.ActiveControl(), &row.txtName);
            EXPECT_EQ(app.Loaded<frmBrowseQuick>(), nullptr);
        }
    });
    EXPECT_EQ(browses, 4);
}

TEST_F(QuickFoldersTest, APathThatIsClickedBrowses) {
    OnBrowse([](frmBrowseQuick& browse) { EXPECT_EQ(browse.Caption.Get(), "Select Quick Folder 3"); });
    Show([](frmQuickFolders& dialog) {
        dialog.Rows[2].lblPath.Deliver(forms::ClickEvent{});
        EXPECT_EQ(dialog.ActiveControl(), &dialog.Rows[2].txtName);
    });
    EXPECT_EQ(browses, 1);
}

TEST_F(QuickFoldersTest, APressTooManyOpensOneWindow) {
    OnBrowse([](frmBrowseQuick& browse) { EXPECT_EQ(browse.Caption.Get(), "Select Quick Folder 1"); });
    Show([this](frmQuickFolders& dialog) {
        toolkit.AtYield(1, [&dialog] { Press(dialog.Rows[1].CmdBrowse); });
        Press(dialog.Rows[0].CmdBrowse);
    });
    EXPECT_EQ(browses, 1);
}

TEST_F(QuickFoldersTest, ClosedWhileMessagesRunNothingOpens) {
    OnBrowse([](frmBrowseQuick&) {});
    Show([this](frmQuickFolders& dialog) {
        toolkit.AtYield(1, [&dialog] { Press(dialog.CmdCancel); });
        Press(dialog.Rows[0].CmdBrowse);
    });
    EXPECT_EQ(browses, 0);
}

TEST_F(QuickFoldersTest, AStoredPathThatVanishedIsNoMatterHere) {
    module.config.QuickFolderPath[0] = "Q:\\gone\\";
    Show([](frmQuickFolders& dialog) { Press(dialog.CmdOK); });
    EXPECT_EQ(module.config.QuickFolderPath[0], "Q:\\gone\\");
}

TEST_F(QuickFoldersTest, HelpShowsItsPage) {
    Show([this](frmQuickFolders& dialog) {
        platform.help.calls.clear();
        Press(dialog.CmdHelp);
        EXPECT_EQ(platform.help.calls, (std::vector<headless::RecordingHelp::Call>{
                                           {"C:\\Tavrix\\TAVRIX.HLP", HelpCommand::Context, 130}}));
        EXPECT_EQ(dialog.HelpContext, HelpContext::QuickFolders);
    });
}

TEST_F(QuickFoldersTest, DoesNotOpenWhileTheProgramIsBusy) {
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    EXPECT_FALSE(Choose(View().menu.mnuQuickFolders));
    EXPECT_EQ(app.Loaded<frmQuickFolders>(), nullptr);
}

TEST_F(QuickFoldersTest, TheMainViewLeavesTheTopmostBandMeanwhile) {
    module.config.TopMostWindow = true;
    View().SetTopmost(true);
    Show([this](frmQuickFolders&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
}

}  // namespace
}  // namespace tavrix::test
