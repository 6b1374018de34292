#include "BrowsingTest.h"

namespace tavrix::test {
namespace {

class ThumbDialogsTest : public BrowsingTest {
  protected:
    void InFolder(std::function<void(frmThumbFolder&)> action) {
        InDialog<frmThumbFolder>("frmThumbFolder", std::move(action));
        Choose(View().menu.mnuThumbnailBrowse);
    }
    void InSelect(std::function<void(frmThumbSelect&)> action) {
        InDialog<frmThumbSelect>("frmThumbSelect", std::move(action));
        Choose(View().menu.mnuThumbnailSelect);
    }
    /// Neither dialog has made a list.
    void ExpectStillInTheMainView() {
        EXPECT_EQ(app.Loaded<frmThumbnail>(), nullptr);
        ASSERT_NE(Visible("MainViewFrm"), nullptr);
        ExpectIdle();
    }
    static constexpr const char* NoImages =
        "There are no images in the selected folder to browse.\r\n\r\nSelect another location and then try "
        "again...";
};

TEST_F(ThumbDialogsTest, TextsAreAsTold) {
    ASSERT_TRUE(Start());
    InFolder([](frmThumbFolder& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Thumbnail Browser - [Select Folder to Browse]");
        EXPECT_EQ(dialog.Chooser.Label1.Caption.Get(),
                  "Select a directory and then press the \"OK\" button to view thumbnail images.");
        EXPECT_EQ(dialog.Chooser.lblDrives.Caption.Get(), "Select Drive:");
        EXPECT_EQ(dialog.Chooser.Drive1.ToolTip.Get(), "Click to select drive.");
        EXPECT_EQ(dialog.Chooser.lblFolders.Caption.Get(), "Select Directory:");
        EXPECT_FALSE(dialog.Chooser.File1.Visible);
        EXPECT_FALSE(dialog.Chooser.lblFiles.Visible);
        EXPECT_EQ(dialog.CmdOK.Caption.Get(), "&OK");
        EXPECT_EQ(dialog.CmdOK.ToolTip.Get(),
                  "Click here to show thumbnails of images in the selected folder.");
        EXPECT_TRUE(dialog.CmdOK.Default);
        EXPECT_EQ(dialog.CmdCancel.Caption.Get(), "&Cancel");
        EXPECT_EQ(dialog.CmdCancel.ToolTip.Get(), "Don't show thumbnails.");
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        EXPECT_EQ(dialog.CmdHelp.Caption.Get(), "Help");
        EXPECT_EQ(dialog.Chooser.CmdFF.Caption.Get(), "&FF");
        EXPECT_EQ(dialog.Chooser.CmdFF.ToolTip.Get(), "Change directory to your Favorite Folder.");
        EXPECT_EQ(dialog.HelpContext, 1260U);
    });
    InSelect([](frmThumbSelect& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Thumbnail Browser - [Select Files]");
        EXPECT_EQ(dialog.Chooser.Label1.Caption.Get(),
                  "Select a directory and the files to view thumbnails of and then press the \"OK\" button.");
        EXPECT_EQ(dialog.Chooser.lblFiles.Caption.Get(), "Select Files:");
        EXPECT_TRUE(dialog.Chooser.File1.Visible);
        EXPECT_EQ(dialog.CmdAll.Caption.Get(), "Select &All");
        EXPECT_EQ(dialog.CmdAll.ToolTip.Get(), "Select all filenames in the file list.");
        EXPECT_EQ(dialog.CmdNone.Caption.Get(), "Select &None");
        EXPECT_EQ(dialog.CmdNone.ToolTip.Get(), "De-select all files.");
        EXPECT_EQ(dialog.CmdInverse.Caption.Get(), "&Inverse");
        EXPECT_EQ(dialog.CmdInverse.ToolTip.Get(), "Inverse selections.");
        EXPECT_EQ(dialog.CmdOK.Caption.Get(), "&OK");
        EXPECT_EQ(dialog.CmdOK.ToolTip.Get(), "Click here to show thumbnails of the selected images.");
        EXPECT_TRUE(dialog.CmdOK.Default);
        EXPECT_EQ(dialog.CmdCancel.ToolTip.Get(), "Don't show thumbnails.");
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        EXPECT_EQ(dialog.CmdHelp.Caption.Get(), "Help");
        EXPECT_EQ(dialog.HelpContext, 1270U);
    });
}

TEST_F(ThumbDialogsTest, BothListTheKindsThatAreOpened) {
    ASSERT_TRUE(Start());
    const std::string pattern = "*.dib;*.bmp;*.gif;*.jpg;*.jif;*.jpe;*.jpeg;*.ico;*.wmf;*.emf;*.rle;*.cur";
    InFolder([&](frmThumbFolder& dialog) { EXPECT_EQ(dialog.Chooser.File1.Pattern.Get(), pattern); });
    InSelect([&](frmThumbSelect& dialog) { EXPECT_EQ(dialog.Chooser.File1.Pattern.Get(), pattern); });
}

TEST_F(ThumbDialogsTest, TheyBeginInTheFolderOfTheImage) {
    platform.disks.AddDrive('D', DriveType::Fixed);
    platform.disks.InsertDisk('D');
    PutPicture("D:\\q\\a.bmp", 4, 4);
    platform.disks.PutFile("D:\\q\\b.gif", "x");
    ASSERT_TRUE(Start("D:\\q\\a.bmp"));
    platform.files.ChangeDrive("C");
    InFolder([](frmThumbFolder& dialog) {
        EXPECT_EQ(dialog.Chooser.Drive1.Drive.Get(), "D:");
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "D:\\q");
        EXPECT_EQ(dialog.lblNumFiles.Caption.Get(), "There are 2 image files in this folder to browse...");
    });
    EXPECT_EQ(platform.files.CurrentFolder(), "D:\\q");
    platform.files.ChangeDrive("C");
    InSelect([](frmThumbSelect& dialog) { EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "D:\\q"); });
    EXPECT_EQ(platform.files.CurrentFolder(), "D:\\q");
}

TEST_F(ThumbDialogsTest, TheyBeginInTheCurrentFolderWithAnUnsavedImage) {
    ASSERT_TRUE(Start());
    PutNumbered(1);
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    InFolder([](frmThumbFolder& dialog) {
        EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\p");
        EXPECT_EQ(dialog.lblNumFiles.Caption.Get(), "There is one image file in this folder to browse...");
    });
    InSelect([](frmThumbSelect& dialog) { EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\p"); });
    module.CurrentImage.clear();
    InSelect([](frmThumbSelect& dialog) { EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\p"); });
}

TEST_F(ThumbDialogsTest, AFolderThatHasGoneLeavesTheLists) {
    ASSERT_TRUE(Start());
    module.CurrentImage = "C:\\gone\\a.bmp";
    InFolder([](frmThumbFolder& dialog) { EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\p"); });
    InSelect([](frmThumbSelect& dialog) { EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\p"); });
}

TEST_F(ThumbDialogsTest, TheCountFollowsTheFolder) {
    ASSERT_TRUE(Start());
    PutNumbered(5'000);
    platform.disks.PutFolder("C:\\p\\sub");
    platform.disks.PutFile("C:\\p\\sub\\a.txt", "no image");
    InFolder([this](frmThumbFolder& dialog) {
        const auto expect = [&](const char* folder, const char* text) {
            dialog.Chooser.Dir1.Path = folder;
            EXPECT_EQ(dialog.lblNumFiles.Caption.Get(), text);
        };
        expect("C:\\p", "There are 5,000 image files in this folder to browse...");
        expect("C:\\p\\sub", "There are no image files in this folder to browse...");
        platform.disks.PutFile(PathOf(5'001), "x");
        expect("C:\\p", "There are too many files in this folder to browse...");
    });
}

TEST_F(ThumbDialogsTest, AFolderWithoutImagesKeepsTheDialogsOpen) {
    ASSERT_TRUE(Start());
    int asked = 0;
    InFolder([&](frmThumbFolder& dialog) {
        ExpectTold(NoImages);
        Press(dialog.CmdOK);
        EXPECT_FALSE(dialog.Unloaded());
        ++asked;
    });
    ExpectStillInTheMainView();
    InSelect([&](frmThumbSelect& dialog) {
        ExpectTold(NoImages);
        Press(dialog.CmdOK);
        EXPECT_FALSE(dialog.Unloaded());
        ExpectTold("There are no files in the selected directory to select...");
        Press(dialog.CmdAll);
        ExpectTold("There are no files in the selected directory to de-select...");
        Press(dialog.CmdNone);
        ExpectTold("There are no files in the selected directory, nothing to select and/or de-select...");
        Press(dialog.CmdInverse);
        ++asked;
    });
    ExpectStillInTheMainView();
    EXPECT_EQ(asked, 2);
}

TEST_F(ThumbDialogsTest, FiveThousandImagesAreTheMost) {
    PutNumbered(5'001);
    ASSERT_TRUE(Start());
    InFolder([this](frmThumbFolder& dialog) {
        ExpectTold(
            "There are 5,001 files in this folder, you may only browse 5,000 thumbnails at a time.\r\n\r\n"
            "Select another folder and then try again...");
        Press(dialog.CmdOK);
        EXPECT_FALSE(dialog.Unloaded());
    });
    ExpectStillInTheMainView();
    platform.disks.Remove(PathOf(2'500));
    InFolder([](frmThumbFolder& dialog) { Press(dialog.CmdOK); });
    ASSERT_NE(app.Loaded<frmThumbnail>(), nullptr);
    EXPECT_EQ(Browser().lblNumFiles.Caption.Get(), "5000");
    Press(Browser().CmdPrevious);
    EXPECT_EQ(Page(), FromTo(4'993, 5'001));
}

TEST_F(ThumbDialogsTest, FiveThousandSelectedFilesAreTheMost) {
    PutNumbered(5'001);
    ASSERT_TRUE(Start());
    InSelect([this](frmThumbSelect& dialog) {
        ExpectTold("No files were selected, nothing to show thumbnails of...");
        Press(dialog.CmdOK);
        EXPECT_FALSE(dialog.Unloaded());
        Press(dialog.CmdAll);
        EXPECT_EQ(dialog.Chooser.File1.SelectedCount(), 5'001);
        ExpectTold(
            "There are 5,001 files selected, you may only browse 5,000 thumbnails at a time.\r\n\r\n"
            "Select less files at one time and then try again...");
        Press(dialog.CmdOK);
        EXPECT_FALSE(dialog.Unloaded());
        dialog.Chooser.File1.Select(0, false);
        Press(dialog.CmdOK);
        EXPECT_TRUE(dialog.Unloaded());
    });
    ASSERT_NE(app.Loaded<frmThumbnail>(), nullptr);
    EXPECT_EQ(Browser().lblNumFiles.Caption.Get(), "5000");
    EXPECT_EQ(Page(), FromTo(2, 10));
}

TEST_F(ThumbDialogsTest, ButtonsSelect) {
    PutNumbered(6);
    ASSERT_TRUE(Start());
    InSelect([](frmThumbSelect& dialog) {
        forms::FileListBox& files = dialog.Chooser.File1;
        Press(dialog.CmdAll);
        EXPECT_EQ(files.SelectedCount(), 6);
        Press(dialog.CmdNone);
        EXPECT_EQ(files.SelectedCount(), 0);
        files.Select(2);
        Press(dialog.CmdInverse);
        EXPECT_EQ(files.SelectedCount(), 5);
        EXPECT_FALSE(files.Selected(2));
    });
}

TEST_F(ThumbDialogsTest, ClicksToggleAndADragSelects) {
    PutNumbered(9);
    ASSERT_TRUE(Start());
    InSelect([](frmThumbSelect& dialog) {
        forms::FileListBox& files = dialog.Chooser.File1;
        const auto mouse = [&files](MouseAction action, int row) {
            files.Deliver(forms::MouseEvent{action, MouseButton::Left, 0, 5, row * 20 + 5, row});
        };
        const auto click = [&](int row) {
            mouse(MouseAction::Down, row);
            mouse(MouseAction::Up, row);
        };
        click(1);
        click(7);
        EXPECT_EQ(files.SelectedCount(), 2);
        click(1);
        EXPECT_FALSE(files.Selected(1));
        EXPECT_TRUE(files.Selected(7));
        mouse(MouseAction::Down, 2);
        for (const int row : {3, 4, 5})
            mouse(MouseAction::Move, row);
        mouse(MouseAction::Up, 5);
        EXPECT_EQ(files.SelectedCount(), 5);
        for (const int row : {2, 3, 4, 5, 7})
            EXPECT_TRUE(files.Selected(row)) << row;
    });
}

TEST_F(ThumbDialogsTest, SelectedFilesKeepTheOrderOfTheList) {
    PutNumbered(9);
    ASSERT_TRUE(Start());
    TakeFiles({7, 0, 3});
    Choose(View().menu.mnuThumbnailSelect);
    EXPECT_EQ(Page(), (std::vector<int>{1, 4, 8}));
    EXPECT_EQ(Browser().lblInfo.Caption.Get(), "Tavrix is showing thumbnails of selected files...");
    MoveOver(Browser().picPreview[0]);
    EXPECT_TRUE(Browser().lblHotspotMsg.Caption.Get().starts_with("C:\\p\\n0001.bmp ("));
    EXPECT_EQ(Visible("MainViewFrm"), nullptr);
    ExpectReady();
}

TEST_F(ThumbDialogsTest, TheFoldersNameBeginsWithAnUpperCaseDrive) {
    PutPicture("C:\\n0001.bmp", 4, 4);
    ASSERT_TRUE(Start());
    InFolder([](frmThumbFolder& dialog) {
        dialog.Chooser.Dir1.Path = "c:\\";
        Press(dialog.CmdOK);
    });
    EXPECT_EQ(Browser().lblInfo.Caption.Get(), "C:\\");
    Click(0);
    EXPECT_EQ(module.CurrentImage, "C:\\n0001.bmp");
}

TEST_F(ThumbDialogsTest, ADriveWithoutADiskLeadsToTheProgramsFolder) {
    ASSERT_TRUE(Start());
    const auto chooseA = [this](ThumbChooser& chooser) {
        Expect({.text = "The selected drive is currently not available...",
                .icon = forms::BoxIcon::Exclamation});
        chooser.Drive1.Deliver(forms::RowEvent{0});
        EXPECT_EQ(chooser.Drive1.Drive.Get(), "C:");
        EXPECT_EQ(chooser.Dir1.Path.Get(), "C:\\Tavrix");
        EXPECT_EQ(chooser.File1.Path.Get(), "C:\\Tavrix");
        EXPECT_FALSE(module.Busy());
    };
    InFolder([&](frmThumbFolder& dialog) { chooseA(dialog.Chooser); });
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\Tavrix");
    platform.files.ChangeFolder("C:\\p");
    InSelect([&](frmThumbSelect& dialog) { chooseA(dialog.Chooser); });
}

TEST_F(ThumbDialogsTest, TheFavoriteAndTheQuickFoldersAreOneClickAway) {
    platform.disks.PutFolder("C:\\fav");
    platform.disks.PutFolder("C:\\quick");
    ASSERT_TRUE(Start());
    module.config.FavoriteFolder = "C:\\fav";
    module.config.QuickFolder[1] = "Quick";
    module.config.QuickFolderPath[1] = "C:\\quick\\";
    const auto use = [this](ThumbChooser& chooser) {
        Press(chooser.CmdFF);
        EXPECT_EQ(chooser.Dir1.Path.Get(), "C:\\fav");
        toolkit.ChooseFromPopup("Quick");
        chooser.CmdFF.Deliver(forms::MouseEvent{MouseAction::Down, MouseButton::Right, 0, 1, 1});
        EXPECT_EQ(chooser.Dir1.Path.Get(), "C:\\quick");
        EXPECT_EQ(toolkit.Popups().back().menu->entries[0]->state.caption,
                  ">>  Close Menu  <<          (Esc)");
        module.config.QuickFolderPath[1] = "C:\\gone\\";
        toolkit.ChooseFromPopup("Quick");
        Expect({.text = "Unable to change directory to Quick Path 2.\r\n\r\nPath not found...",
                .icon = forms::BoxIcon::Stop});
        chooser.CmdFF.Deliver(forms::MouseEvent{MouseAction::Down, MouseButton::Right, 0, 1, 1});
        module.config.QuickFolderPath[1] = "C:\\quick\\";
    };
    InFolder([&](frmThumbFolder& dialog) { use(dialog.Chooser); });
    InSelect([&](frmThumbSelect& dialog) { use(dialog.Chooser); });
}

TEST_F(ThumbDialogsTest, HelpOpensTheirPages) {
    ASSERT_TRUE(Start());
    platform.help.calls.clear();
    InFolder([](frmThumbFolder& dialog) { Press(dialog.CmdHelp); });
    InSelect([](frmThumbSelect& dialog) { Press(dialog.CmdHelp); });
    ASSERT_EQ(platform.help.calls.size(), 2U);
    EXPECT_EQ(platform.help.calls[0],
              (headless::RecordingHelp::Call{"C:\\Tavrix\\TAVRIX.HLP", HelpCommand::Context, 1260}));
    EXPECT_EQ(platform.help.calls[1].data, 1270U);
}

TEST_F(ThumbDialogsTest, TheFolderLookedAtStaysTheCurrentOneAfterACancelToo) {
    platform.disks.PutFolder("C:\\q");
    ASSERT_TRUE(Start());
    InFolder([](frmThumbFolder& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\q";
        Press(dialog.CmdCancel);
    });
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\q");
    ExpectStillInTheMainView();
}

TEST_F(ThumbDialogsTest, ACanceledDialogLeavesTheMainViewTopmost) {
    ASSERT_TRUE(Start());
    PutNumbered(1);
    module.config.TopMostWindow = true;
    View().SetTopmost(true);
    InFolder([this](frmThumbFolder&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
    InSelect([this](frmThumbSelect&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
    ExpectStillInTheMainView();
    TakeFolder();
    Choose(View().menu.mnuThumbnailBrowse);
    ASSERT_NE(app.Loaded<frmThumbnail>(), nullptr);
    for (const headless::HeadlessWindowPeer* window : toolkit.Windows())
        EXPECT_FALSE(window->topmost) << window->traits.name;
    Press(Browser().CmdClose);
    EXPECT_TRUE(Window().topmost);
}

TEST_F(ThumbDialogsTest, NothingOpensWhileTheProgramIsBusy) {
    ASSERT_TRUE(Start());
    int shown = 0;
    toolkit.OnModal("frmThumbFolder", [&] { ++shown; });
    toolkit.OnModal("frmThumbSelect", [&] { ++shown; });
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    Choose(View().menu.mnuThumbnailBrowse);
    Choose(View().menu.mnuThumbnailSelect);
    EXPECT_EQ(shown, 0);
    module.Screen().MousePointer = forms::MousePointer::Default;
}

TEST_F(ThumbDialogsTest, ASecondPressOfOkWhileTheDialogClosesDoesNothing) {
    PutNumbered(3);
    ASSERT_TRUE(Start());
    InFolder([this](frmThumbFolder& dialog) {
        toolkit.Post([this, &dialog] {
            platform.disks.Remove(PathOf(1));
            dialog.Chooser.File1.Refresh();
            Press(dialog.CmdOK);
            Press(dialog.CmdCancel);
        });
        Press(dialog.CmdOK);
        platform.disks.PutFile(PathOf(1), *platform.disks.Content(PathOf(2)));
    });
    EXPECT_EQ(Page(), FromTo(1, 3));
}

TEST_F(ThumbDialogsTest, TheCommandLineOpensTheDialog) {
    PutNumbered(2);
    TakeFolder();
    ASSERT_TRUE(Start("/Thumbnail"));
    ASSERT_NE(app.Loaded<frmThumbnail>(), nullptr);
    EXPECT_EQ(Visible("MainViewFrm"), nullptr);
    ExpectPage(1, 2);
}

TEST_F(ThumbDialogsTest, TheSettingsOpenTheDialogAtTheStart) {
    Setting("StartupDialog", "4");
    PutNumbered(2);
    TakeFolder();
    ASSERT_TRUE(Start());
    ASSERT_NE(app.Loaded<frmThumbnail>(), nullptr);
    EXPECT_EQ(Visible("MainViewFrm"), nullptr);
    ExpectPage(1, 2);
}

}  // namespace
}  // namespace tavrix::test
