#include "support/MainViewFixture.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxIcon;

class ShellCommandsTest : public MainViewFixture {
  protected:
    ShellCommandsTest() { Start(); }

    MainMenu& Menu() { return View().menu; }
    /// What a command asks of the desktop.
    std::vector<std::string> Run(forms::Menu& entry) {
        platform.shell.commands.clear();
        entry.Deliver(forms::ClickEvent{});
        return platform.shell.commands;
    }
    using Lines = std::vector<std::string>;
};

TEST_F(ShellCommandsTest, DisksAreHandedOverOnlyIfTheyCanBeTakenOut) {
    platform.disks.InsertDisk('A');
    const std::string noCopy = "An error occurred while trying to open the diskcopy dialog...";
    const std::string noFormat = "An error occurred while trying to open the format floppy dialog...";
    Expect({.text = noCopy});
    EXPECT_EQ(Run(Menu().mnuShellDiskcopy), Lines{});
    Expect({.text = noFormat});
    EXPECT_EQ(Run(Menu().mnuFormatFloppy), Lines{});

    platform.disks.SetDevice('A', "/dev/fd0");
    EXPECT_EQ(Run(Menu().mnuShellDiskcopy), (Lines{"rundll32.exe diskcopy.dll,DiskCopyRunDll 0,0"}));
    EXPECT_EQ(Run(Menu().mnuFormatFloppy), (Lines{"rundll32.exe shell32.dll,SHFormatDrive"}));
    module.config.DefaultFloppy = "B:\\";
    platform.disks.AddDrive('B', DriveType::Removable);
    platform.disks.SetDevice('B', "/dev/fd1");
    EXPECT_EQ(Run(Menu().mnuShellDiskcopy), (Lines{"rundll32.exe diskcopy.dll,DiskCopyRunDll 1,1"}));

    platform.shell.canRun = false;
    Expect({.text = noCopy});
    Run(Menu().mnuShellDiskcopy);
    Expect({.text = noFormat});
    Run(Menu().mnuFormatFloppy);
}

TEST_F(ShellCommandsTest, PropertiesPages) {
    EXPECT_EQ(Run(Menu().mnuDisplayProperties),
              (Lines{"rundll32.exe shell32.dll,Control_RunDLL desk.cpl,@0,3"}));
    EXPECT_EQ(Run(Menu().mnuMultimediaProperties),
              (Lines{"rundll32.exe shell32.dll,Control_RunDLL mmsys.cpl"}));
    platform.shell.canRun = false;
    Expect({.text = "An error occurred while trying to open the display properties dialog..."});
    Run(Menu().mnuDisplayProperties);
    Expect({.text = "An error occurred while trying to open the multimedia properties dialog..."});
    Run(Menu().mnuMultimediaProperties);
}

TEST_F(ShellCommandsTest, FoldersAreShown) {
    platform.disks.PutFolder("C:\\My Documents");
    platform.disks.PutFolder("C:\\Fav");
    module.config.FavoriteFolder = "C:\\Fav";
    struct Case {
        forms::Menu& entry;
        std::string line;
        std::string failure;
    };
    module.CurrentImage = "C:\\Pics\\a.bmp";
    const std::vector<Case> cases{
        {Menu().mnuExplorer, "explorer.exe", "Error, unable to start Windows Explorer."},
        {Menu().mnuExploreFloppy, "explorer.exe A:\\", "Error, unable to start Windows Explorer."},
        {Menu().mnuExploreFolder, "explorer.exe C:\\Pics",
         "Unable to start Windows Explorer to show the current image folder."},
        {Menu().mnuWinFolder, "explorer.exe C:\\Windows",
         "Unable to start Windows Explorer to show the Windows folder."},
        {Menu().mnuExploreFavFolder, "explorer.exe C:\\Fav",
         "Error, unable to start Windows Explorer to show the contents of your Favorite Folder."},
        {Menu().mnuExploreMyDocuments, "explorer.exe C:\\My Documents",
         "Unable to start Windows Explorer to show the \"My Documents\" folder."}};
    Menu().mnuExploreFolder.Enabled = true;
    for (const Case& one : cases) {
        platform.shell.canRun = true;
        EXPECT_EQ(Run(one.entry), Lines{one.line});
        platform.shell.canRun = false;
        Expect({.text = one.failure, .icon = BoxIcon::Stop});
        Run(one.entry);
    }
}

TEST_F(ShellCommandsTest, MyDocumentsIsMadeIfThatIsWanted) {
    const std::string question =
        "The following directory does not exist:\r\n\r\nC:\\My Documents\r\n\r\nWould you like to create it "
        "now?";
    const auto ask = [&](Answer reply) {
        Expect({.text = question,
                .icon = BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    };
    ask(Answer::No);
    EXPECT_EQ(Run(Menu().mnuExploreMyDocuments), Lines{});
    EXPECT_FALSE(platform.disks.Exists("C:\\My Documents"));
    platform.disks.SetWriteProtected('C', true);
    ask(Answer::Yes);
    Expect({.text = "Unable to create \"My Documents\" folder.\r\n\r\nPermission denied...",
            .icon = BoxIcon::Stop});
    EXPECT_EQ(Run(Menu().mnuExploreMyDocuments), Lines{});
    platform.disks.SetWriteProtected('C', false);
    ask(Answer::Yes);
    EXPECT_EQ(Run(Menu().mnuExploreMyDocuments), (Lines{"explorer.exe C:\\My Documents"}));
    EXPECT_TRUE(platform.disks.Exists("C:\\My Documents"));
}

TEST_F(ShellCommandsTest, AMissingFavoriteFolderMayBeChosenAgain) {
    module.config.FavoriteFolder = "C:\\Gone";
    const std::string question =
        "The Favorite Folder that was selected does not exist:\r\n\r\nC:\\Gone\r\n\r\n"
        "Would you like to specify another location now?";
    int opened = 0;
    toolkit.OnModal("frmFavFolder", [&] {
        ++opened;
        app.Unload(app.FormAt(app.FormCount() - 1));
    });
    for (const Answer reply : {Answer::No, Answer::Yes}) {
        Expect({.text = question,
                .icon = BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
        EXPECT_EQ(Run(Menu().mnuExploreFavFolder), Lines{});
        EXPECT_EQ(opened, reply == Answer::Yes ? 1 : 0);
    }
}

TEST_F(ShellCommandsTest, WithoutAnImageThereIsNoFolderOfIt) {
    EXPECT_EQ(Run(Menu().mnuExploreFolder), Lines{});
}

TEST_F(ShellCommandsTest, TheMainViewMakesRoomAndNothingRunsTwice) {
    module.config.TopMostWindow = true;
    View().SetTopmost(true);
    Run(Menu().mnuExplorer);
    EXPECT_FALSE(toolkit.VisibleWindow("MainViewFrm")->topmost);
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    EXPECT_EQ(Run(Menu().mnuExplorer), Lines{});
    module.Screen().MousePointer = forms::MousePointer::Default;
}

}  // namespace
}  // namespace tavrix::test
