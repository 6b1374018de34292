#include "lists/frmFavFolder.h"

#include "core/HelpContexts.h"
#include "core/NumberText.h"
#include "lists/FolderWindowTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;

class FavFolderTest : public FolderWindowTest {
  protected:
    /// Opens the dialog; the user does this and cancels, unless it is closed by then.
    void Show(std::function<void(frmFavFolder&)> user) {
        int shown = 0;
        toolkit.OnModal("frmFavFolder", [this, user, &shown] {
            ++shown;
            user(*app.Loaded<frmFavFolder>());
            if (auto* dialog = app.Loaded<frmFavFolder>()) Press(dialog->CmdCancel);
        });
        EXPECT_FALSE(Choose(View().menu.mnuFavoriteFolder));
        EXPECT_EQ(shown, 1);
        EXPECT_EQ(app.Loaded<frmFavFolder>(), nullptr);
        EXPECT_FALSE(module.Busy());
    }
    static std::string PlaceOf(const frmFavFolder& dialog) {
        EXPECT_EQ(dialog.Chooser.Drive1.Drive.Get(), dialog.Chooser.Dir1.Path.Get().substr(0, 2));
        return dialog.Chooser.Dir1.Path;
    }
    /// As told of a disk that is larger than a 32-bit figure.
    std::string FreeOnC() {
        const std::int64_t bytes = WholeSectors(platform.disks.Drives().at('C').disk->FreeBytes());
        EXPECT_GT(bytes, 3'000'000'000);
        return "Free Space on Drive C:\\  =" + GroupedNumber(bytes, platform.system.Numbers()) + " bytes...";
    }
    static std::string FreeSpace(const frmFavFolder& dialog) { return dialog.Chooser.lblFreeSpace.Caption; }
};

TEST_F(FavFolderTest, BeginsInTheFavoriteFolder) {
    module.config.FavoriteFolder = "D:\\Photos\\";
    Show([](frmFavFolder& dialog) {
        EXPECT_EQ(PlaceOf(dialog), "D:\\Photos");
        EXPECT_EQ(dialog.lblPath.Caption.Get(), "D:\\Photos\\");
        EXPECT_EQ(FreeSpace(dialog), "Free Space on Drive D:\\  =1,234,944 bytes...");
    });
}

TEST_F(FavFolderTest, TextsAreAsTold) {
    Show([](frmFavFolder& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Favorite Folder");
        EXPECT_EQ(dialog.Chooser.lblFreeSpaceMsg.Caption.Get(), "Free Space:");
        const std::vector<std::vector<std::string>> texts{
            {dialog.Chooser.CmdFF2.Caption, dialog.Chooser.CmdFF2.ToolTip},
            {dialog.Chooser.CmdMyDocuments.Caption, dialog.Chooser.CmdMyDocuments.ToolTip},
            {dialog.Chooser.CmdNewFolder.Caption, dialog.Chooser.CmdNewFolder.ToolTip},
            {dialog.Chooser.CmdExplore.Caption, dialog.Chooser.CmdExplore.ToolTip},
            {dialog.CmdOK.Caption, dialog.CmdOK.ToolTip},
            {dialog.CmdCancel.Caption, dialog.CmdCancel.ToolTip},
            {dialog.CmdHelp.Caption, dialog.CmdHelp.ToolTip}};
        const std::vector<std::vector<std::string>> expected{
            {"&FF", "Change directory to your Favorite Folder."},
            {"&My Documents", ""},
            {"&New Folder", "Create a new folder in the selected directory."},
            {"&Explore", "View files in the selected directory."},
            {"&OK", ""},
            {"&Cancel", ""},
            {"&Help", ""}};
        EXPECT_EQ(texts, expected);
    });
}

TEST_F(FavFolderTest, TheTabKeyGoesFromTheListsToTheButtons) {
    Show([](frmFavFolder& dialog) {
        EXPECT_EQ(
            NamesOf(dialog),
            (std::vector<std::string>{"lblDrives", "Drive1", "lblFolders", "Dir1", "CmdFF2", "CmdMyDocuments",
                                      "CmdNewFolder", "CmdExplore", "lblFreeSpaceMsg", "lblFreeSpace",
                                      "lblPathMsg", "lblPath", "CmdOK", "CmdCancel", "CmdHelp"}));
        EXPECT_TRUE(dialog.CmdOK.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
    });
}

TEST_F(FavFolderTest, OKTakesTheFolderOfTheList) {
    Show([this](frmFavFolder& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\Pictures\\Old";
        EXPECT_EQ(module.config.FavoriteFolder, "C:\\Pictures");
        Press(dialog.CmdOK);
    });
    EXPECT_EQ(module.config.FavoriteFolder, "C:\\Pictures\\Old");
    // It is in the settings at exit.
    EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
    EXPECT_EQ(Saved("FavoriteFolder"), "C:\\Pictures\\Old");
}

TEST_F(FavFolderTest, CancelAndTheFrameChangeNothing) {
    Show([](frmFavFolder& dialog) { dialog.Chooser.Dir1.Path = "C:\\Pictures\\Old"; });
    EXPECT_EQ(module.config.FavoriteFolder, "C:\\Pictures");
    Show([](frmFavFolder& dialog) {
        dialog.Chooser.Drive1.Drive = "D:";
        dialog.Deliver(forms::CloseEvent{});
    });
    EXPECT_EQ(module.config.FavoriteFolder, "C:\\Pictures");
}

TEST_F(FavFolderTest, AFavoriteFolderThatVanishedIsShownAndLeavesTheLists) {
    module.config.FavoriteFolder = "C:\\gone";
    platform.files.ChangeFolder("C:\\Pictures\\Old");
    Show([this](frmFavFolder& dialog) {
        EXPECT_EQ(dialog.lblPath.Caption.Get(), "C:\\gone");
        EXPECT_EQ(PlaceOf(dialog), "C:\\Pictures\\Old");
        EXPECT_EQ(FreeSpace(dialog), FreeOnC());
    });
}

TEST_F(FavFolderTest, AFavoriteFolderWithoutItsDiskIsTold) {
    module.config.FavoriteFolder = "A:\\Photos";
    Expect({.text = "The selected drive is currently not available..."});
    Show([](frmFavFolder& dialog) { EXPECT_EQ(PlaceOf(dialog), "C:\\"); });
}

TEST_F(FavFolderTest, TheFreeSpaceFollowsTheDrive) {
    Show([this](frmFavFolder& dialog) {
        EXPECT_EQ(FreeSpace(dialog), FreeOnC());
        dialog.Chooser.Drive1.Deliver(forms::RowEvent{2});
        EXPECT_EQ(FreeSpace(dialog), "Free Space on Drive D:\\  =1,234,944 bytes...");
        // A drive that is not available leaves the figure of the one that is.
        Expect({.text = "The selected drive is currently not available..."});
        dialog.Chooser.Drive1.Deliver(forms::RowEvent{0});
        EXPECT_EQ(FreeSpace(dialog), "Free Space on Drive D:\\  =1,234,944 bytes...");
        platform.system.numbers.thousands = "'";
        dialog.Chooser.Dir1.Path = "D:\\Photos";
        EXPECT_EQ(FreeSpace(dialog), "Free Space on Drive D:\\  =1'234'944 bytes...");
    });
}

TEST_F(FavFolderTest, WithoutFreeSpaceOrNewsOfItThereIsNoFigure) {
    platform.disks.SetCapacity('D', 0);
    module.config.FavoriteFolder = "D:\\";
    Show([this](frmFavFolder& dialog) {
        EXPECT_EQ(FreeSpace(dialog), "Free Space on Drive D:\\  = bytes...");
        platform.faults.FailAlways(Service::Drives, "FreeBytes", ErrorNumber::DiskNotReady);
        dialog.Chooser.Drive1.Drive = "C:";
        EXPECT_EQ(FreeSpace(dialog), "Free Space on Drive C:\\  = bytes...");
    });
}

TEST_F(FavFolderTest, TheFolderButtonKnowsTheSettings) {
    module.config.QuickFolder = {"", "Photos", "", "Gone"};
    module.config.QuickFolderPath = {"", "D:\\Photos\\", "", "D:\\gone"};
    Show([this](frmFavFolder& dialog) {
        ChooseFromPopup(dialog.Chooser, "Photos");
        EXPECT_EQ(PlaceOf(dialog), "D:\\Photos");
        Press(dialog.Chooser.CmdFF2);
        EXPECT_EQ(PlaceOf(dialog), "C:\\Pictures");
        ExpectStop("Unable to change directory to Quick Path 4.\r\n\r\nPath not found...");
        ChooseFromPopup(dialog.Chooser, "Gone");
    });
}

TEST_F(FavFolderTest, ANewFolderCanBeTheFavorite) {
    Show([this](frmFavFolder& dialog) {
        AnswerNewFolder("New");
        Press(dialog.Chooser.CmdNewFolder);
        EXPECT_EQ(PlaceOf(dialog), "C:\\Pictures\\New");
        Press(dialog.CmdOK);
    });
    EXPECT_EQ(module.config.FavoriteFolder, "C:\\Pictures\\New");
}

TEST_F(FavFolderTest, AKeyTooManyBehindTheNameOfANewFolderIsIgnored) {
    Show([this](frmFavFolder& dialog) {
        AnswerNewFolder("New");
        toolkit.AtYield(1, [&dialog] { Press(dialog.CmdOK); });
        Press(dialog.Chooser.CmdNewFolder);
        EXPECT_FALSE(dialog.Unloaded());
        EXPECT_EQ(PlaceOf(dialog), "C:\\Pictures\\New");
    });
    EXPECT_EQ(module.config.FavoriteFolder, "C:\\Pictures");
}

TEST_F(FavFolderTest, ExploreStartsTheFileManager) {
    Show([this](frmFavFolder& dialog) {
        dialog.Chooser.Dir1.Path = "C:\\Pictures\\Old";
        Press(dialog.Chooser.CmdExplore);
        EXPECT_EQ(platform.shell.commands, (std::vector<std::string>{"explorer.exe C:\\Pictures\\Old"}));
        platform.shell.canRun = false;
        ExpectStop("Error, unable to start Windows Explorer to show selected directory.");
        Press(dialog.Chooser.CmdExplore);
    });
}

TEST_F(FavFolderTest, MyDocumentsIsWhereTheListsGo) {
    platform.disks.PutFolder("D:\\me\\Papers");
    platform.files.SetFolder(KnownFolder::Documents, "D:\\me\\Papers");
    Show([](frmFavFolder& dialog) {
        Press(dialog.Chooser.CmdMyDocuments);
        EXPECT_EQ(PlaceOf(dialog), "D:\\me\\Papers");
    });
}

TEST_F(FavFolderTest, MyDocumentsIsMadeWhenTheUserAgrees) {
    Show([this](frmFavFolder& dialog) {
        ExpectMissingDocuments("C:\\My Documents", Answer::No);
        Press(dialog.Chooser.CmdMyDocuments);
        EXPECT_FALSE(platform.disks.Exists("C:\\My Documents"));
        EXPECT_EQ(PlaceOf(dialog), "C:\\Pictures");
        ExpectMissingDocuments("C:\\My Documents", Answer::Yes);
        Press(dialog.Chooser.CmdMyDocuments);
        EXPECT_TRUE(platform.disks.Exists("C:\\My Documents"));
        EXPECT_EQ(PlaceOf(dialog), "C:\\My Documents");
    });
}

TEST_F(FavFolderTest, MyDocumentsThatCannotBeMadeAreTold) {
    platform.files.SetFolder(KnownFolder::Documents, "C:\\none\\Papers");
    Show([this](frmFavFolder& dialog) {
        ExpectMissingDocuments("C:\\none\\Papers", Answer::Yes);
        ExpectStop("Unable to create My Documents directory");
        Press(dialog.Chooser.CmdMyDocuments);
        EXPECT_EQ(PlaceOf(dialog), "C:\\Pictures");
    });
}

TEST_F(FavFolderTest, MyDocumentsThatCannotBeEnteredAreTold) {
    platform.disks.PutFolder("C:\\My Documents");
    Show([this](frmFavFolder& dialog) {
        platform.faults.FailAlways(Service::Files, "Look", ErrorNumber::PermissionDenied);
        ExpectStop("Unable to change current directory to your My Documents folder...");
        Press(dialog.Chooser.CmdMyDocuments);
        EXPECT_EQ(PlaceOf(dialog), "C:\\Pictures");
    });
}

TEST_F(FavFolderTest, HelpShowsItsPage) {
    Show([this](frmFavFolder& dialog) {
        platform.help.calls.clear();
        Press(dialog.CmdHelp);
        EXPECT_EQ(platform.help.calls, (std::vector<headless::RecordingHelp::Call>{
                                           {"C:\\Tavrix\\TAVRIX.HLP", HelpCommand::Context, 120}}));
        EXPECT_EQ(dialog.HelpContext, HelpContext::FavoriteFolder);
        platform.faults.FailAlways(Service::Help, "Show", ErrorNumber::OutOfMemory);
        Press(dialog.CmdHelp);
    });
}

TEST_F(FavFolderTest, PathsAreShownWithTheirAmpersands) {
    platform.disks.PutFolder("C:\\R&D");
    module.config.FavoriteFolder = "C:\\R&D";
    Show([](frmFavFolder& dialog) {
        EXPECT_EQ(dialog.lblPath.Caption.Get(), "C:\\R&D");
        EXPECT_EQ(static_cast<headless::HeadlessLabelPeer*>(dialog.lblPath.Peer())->text, "C:\\R&&D");
    });
}

TEST_F(FavFolderTest, DoesNotOpenWhileTheProgramIsBusy) {
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    EXPECT_FALSE(Choose(View().menu.mnuFavoriteFolder));
    EXPECT_EQ(app.Loaded<frmFavFolder>(), nullptr);
}

TEST_F(FavFolderTest, TheMainViewLeavesTheTopmostBandMeanwhile) {
    module.config.TopMostWindow = true;
    View().SetTopmost(true);
    Show([this](frmFavFolder&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
}

}  // namespace
}  // namespace tavrix::test
